// Loaded before the system's library into the program under test: a disk that is full from a
// certain call on. Calls that need room below the folder VELORAMA_FULL_PLACE are counted in the
// file VELORAMA_FULL_TALLY; that of number VELORAMA_FULL_AT fails, and with VELORAMA_FULL_STAYS all
// after it. A write that fails first leaves the half of its bytes, if the disk stays full. What was
// never waited for is found to have had no room by a later fsync or close, as on a network disk:
// the file then has lost its second half.

#include "endurance/full_disk/tally.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

using velorama::endurance::Tally;

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

Tally* openTally() {
    const char* const name = std::getenv("VELORAMA_FULL_TALLY");
    if (name == nullptr) {
        return nullptr;
    }
    const int file = next<int (*)(const char*, int, ...)>("open")(name, O_RDWR | O_CLOEXEC);
    void* const memory =
        file < 0 ? MAP_FAILED
                 : ::mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (file >= 0) {
        next<int (*)(int)>("close")(file);
    }
    return memory == MAP_FAILED ? nullptr : static_cast<Tally*>(memory);
}

Tally* tally() {
    static Tally* const all = openTally();
    return all;
}

bool stays() {
    static const bool does = std::getenv("VELORAMA_FULL_STAYS") != nullptr;
    return does;
}

bool isBelowPlace(const char* path) {
    static const char* const place = std::getenv("VELORAMA_FULL_PLACE");
    if (place == nullptr) {
        return false;
    }
    const size_t length = std::strlen(place);
    return std::strncmp(path, place, length) == 0 && path[length] == '/';
}

/// Path of an open file, or of a name in an open folder.
struct Place {
    explicit Place(int file) { read(file, ""); }
    Place(int folder, const char* name) {
        if (name[0] == '/') {
            std::snprintf(path, sizeof path, "%s", name);
        } else if (folder == AT_FDCWD) {
            char here[4096];
            std::snprintf(path, sizeof path, "%s/%s",
                          ::getcwd(here, sizeof here) != nullptr ? here : "", name);
        } else {
            read(folder, name);
        }
    }
    void read(int file, const char* name) {
        char link[64];
        std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
        const ssize_t got = ::readlink(link, path, sizeof path - 1);
        const size_t length = got > 0 ? static_cast<size_t>(got) : 0;
        std::snprintf(path + length, sizeof path - length, name[0] != 0 ? "/%s" : "%s", name);
    }
    char path[8192] = {};
};

/// True if this call finds the disk full; errno says so then.
bool isFull(const char* call, const char* path) {
    if (tally() == nullptr || !isBelowPlace(path)) {
        return false;
    }
    static const char* const asked = std::getenv("VELORAMA_FULL_AT");
    static const long at = asked != nullptr ? std::atol(asked) : 0;
    const long number = std::atomic_ref<long>(tally()->calls).fetch_add(1) + 1;
    if (at <= 0 || number < at || (number > at && !stays())) {
        return false;
    }
    if (std::atomic_ref<long>(tally()->refused).fetch_add(1) == 0) {
        std::snprintf(tally()->first, sizeof tally()->first, "%s %s", call, path);
    }
    errno = ENOSPC;
    return true;
}

bool isFull(const char* call, int file) {
    const int before = errno;
    const Place place(file);
    errno = before;
    return isFull(call, place.path);
}

// -- Files made by this process, and whether all that was written to them is known to be there --

constexpr int mostFiles = 4096;
std::atomic<bool> isNew[mostFiles];
std::atomic<bool> isUnsure[mostFiles];

bool isWatched(int file) {
    return file >= 0 && file < mostFiles && isNew[file];
}

void written(int file) {
    if (isWatched(file)) {
        isUnsure[file] = true;
    }
}

void loseHalf(int file) {
    struct stat status {};
    if (isWatched(file) && isUnsure[file] && ::fstat(file, &status) == 0) {
        next<int (*)(int, off_t)>("ftruncate")(file, status.st_size / 2);
    }
    errno = ENOSPC;
}

mode_t modeOf(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

bool makesFile(int folder, const char* path, int flags) {
    const int before = errno;
    const bool makes = (flags & O_CREAT) != 0 && ::faccessat(folder, path, F_OK, 0) != 0;
    errno = before;
    return makes;
}

int opened(int file, bool made) {
    if (file >= 0 && file < mostFiles) {
        isNew[file] = made;
        isUnsure[file] = false;
    }
    return file;
}

}  // namespace

#define VELORAMA_OPEN(name)                                                                   \
    extern "C" int name(const char* path, int flags, ...) {                                   \
        va_list arguments;                                                                    \
        va_start(arguments, flags);                                                           \
        const mode_t mode = modeOf(flags, arguments);                                         \
        va_end(arguments);                                                                    \
        const bool makes = makesFile(AT_FDCWD, path, flags);                                  \
        if (makes && isFull(#name, Place(AT_FDCWD, path).path)) {                             \
            return -1;                                                                        \
        }                                                                                     \
        return opened(next<int (*)(const char*, int, ...)>(#name)(path, flags, mode), makes); \
    }
VELORAMA_OPEN(open)
VELORAMA_OPEN(open64)

#define VELORAMA_OPEN_AT(name)                                                                     \
    extern "C" int name(int folder, const char* path, int flags, ...) {                            \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeOf(flags, arguments);                                              \
        va_end(arguments);                                                                         \
        const bool makes = makesFile(folder, path, flags);                                         \
        if (makes && isFull(#name, Place(folder, path).path)) {                                    \
            return -1;                                                                             \
        }                                                                                          \
        return opened(next<int (*)(int, const char*, int, ...)>(#name)(folder, path, flags, mode), \
                      makes);                                                                      \
    }
VELORAMA_OPEN_AT(openat)
VELORAMA_OPEN_AT(openat64)

extern "C" ssize_t write(int file, const void* bytes, size_t count) {
    const auto system = next<ssize_t (*)(int, const void*, size_t)>("write");
    written(file);
    if (isFull("write", file)) {
        return stays() && count > 1 ? system(file, bytes, count / 2) : -1;
    }
    return system(file, bytes, count);
}

#define VELORAMA_PWRITE(name, Offset)                                                   \
    extern "C" ssize_t name(int file, const void* bytes, size_t count, Offset at) {     \
        const auto system = next<ssize_t (*)(int, const void*, size_t, Offset)>(#name); \
        written(file);                                                                  \
        if (isFull(#name, file)) {                                                      \
            return stays() && count > 1 ? system(file, bytes, count / 2, at) : -1;      \
        }                                                                               \
        return system(file, bytes, count, at);                                          \
    }
VELORAMA_PWRITE(pwrite, off_t)
VELORAMA_PWRITE(pwrite64, off64_t)

extern "C" ssize_t writev(int file, const iovec* parts, int count) {
    written(file);
    return isFull("writev", file)
               ? -1
               : next<ssize_t (*)(int, const iovec*, int)>("writev")(file, parts, count);
}

extern "C" ssize_t copy_file_range(int from, off64_t* fromAt, int to, off64_t* toAt, size_t count,
                                   unsigned flags) {
    written(to);
    return isFull("copy_file_range", to)
               ? -1
               : next<ssize_t (*)(int, off64_t*, int, off64_t*, size_t, unsigned)>(
                     "copy_file_range")(from, fromAt, to, toAt, count, flags);
}

#define VELORAMA_ALLOCATE(name, Offset, refusal)                                                 \
    extern "C" int name(int file, Offset at, Offset count) {                                     \
        return isFull(#name, file) ? (refusal)                                                   \
                                   : next<int (*)(int, Offset, Offset)>(#name)(file, at, count); \
    }
VELORAMA_ALLOCATE(posix_fallocate, off_t, ENOSPC)
VELORAMA_ALLOCATE(posix_fallocate64, off64_t, ENOSPC)

#define VELORAMA_SYNC(name)                                 \
    extern "C" int name(int file) {                         \
        if (isFull(#name, file)) {                          \
            loseHalf(file);                                 \
            return -1;                                      \
        }                                                   \
        const int result = next<int (*)(int)>(#name)(file); \
        if (result == 0 && file >= 0 && file < mostFiles) { \
            isUnsure[file] = false;                         \
        }                                                   \
        return result;                                      \
    }
VELORAMA_SYNC(fsync)
VELORAMA_SYNC(fdatasync)

extern "C" int close(int file) {
    const auto system = next<int (*)(int)>("close");
    // The memory that processes share in a file would be gone under their feet.
    const bool isUnknown =
        isWatched(file) && isUnsure[file] && std::strstr(Place(file).path, "-shm") == nullptr;
    const bool isLost = isUnknown && isFull("close", file);
    if (isLost) {
        loseHalf(file);
    }
    opened(file, false);
    const int result = system(file);
    if (isLost) {
        errno = ENOSPC;
    }
    return isLost ? -1 : result;
}

extern "C" int mkdir(const char* path, mode_t mode) {
    return isFull("mkdir", Place(AT_FDCWD, path).path)
               ? -1
               : next<int (*)(const char*, mode_t)>("mkdir")(path, mode);
}

extern "C" int rename(const char* from, const char* to) {
    return isFull("rename", Place(AT_FDCWD, to).path)
               ? -1
               : next<int (*)(const char*, const char*)>("rename")(from, to);
}

extern "C" int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
    return isFull("renameat", Place(toFolder, to).path)
               ? -1
               : next<int (*)(int, const char*, int, const char*)>("renameat")(fromFolder, from,
                                                                               toFolder, to);
}

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) {
    return isFull("renameat2", Place(toFolder, to).path)
               ? -1
               : next<int (*)(int, const char*, int, const char*, unsigned)>("renameat2")(
                     fromFolder, from, toFolder, to, flags);
}

extern "C" int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    return isFull("linkat", Place(toFolder, to).path)
               ? -1
               : next<int (*)(int, const char*, int, const char*, int)>("linkat")(
                     fromFolder, from, toFolder, to, flags);
}

extern "C" int link(const char* from, const char* to) {
    return isFull("link", Place(AT_FDCWD, to).path)
               ? -1
               : next<int (*)(const char*, const char*)>("link")(from, to);
}

// Loaded before the system's library into the program under test: a place of the disk that does not
// answer, as a server that is gone. Below the folder, or the file, that VELORAMA_HANGING_PLACE
// names nothing comes back from the system as long as the file "<place>.hangs" is there. What has
// to wait leaves a file "<place>.waited".

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

bool isBelow(const char* path, const char* place) {
    const size_t length = std::strlen(place);
    return std::strncmp(path, place, length) == 0 && (path[length] == 0 || path[length] == '/');
}

void wait(const char* path) {
    static const char* const place = std::getenv("VELORAMA_HANGING_PLACE");
    if (place == nullptr || path == nullptr || !isBelow(path, place)) {
        return;
    }
    char flag[4096] = {};
    char trace[4096] = {};
    std::snprintf(flag, sizeof flag, "%s.hangs", place);
    std::snprintf(trace, sizeof trace, "%s.waited", place);
    const int before = errno;
    while (next<int (*)(const char*, int)>("access")(flag, F_OK) == 0) {
        ::close(::creat(trace, 0600));
        ::usleep(10'000);
    }
    errno = before;
}

void waitForFile(int file) {
    char link[64] = {};
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    char path[4096] = {};
    const int before = errno;
    if (::readlink(link, path, sizeof path - 1) > 0) {
        wait(path);
    }
    errno = before;
}

mode_t modeOf(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

#define VELORAMA_OPEN(name)                                                    \
    extern "C" int name(const char* path, int flags, ...) {                    \
        va_list arguments;                                                     \
        va_start(arguments, flags);                                            \
        const mode_t mode = modeOf(flags, arguments);                          \
        va_end(arguments);                                                     \
        wait(path);                                                            \
        return next<int (*)(const char*, int, ...)>(#name)(path, flags, mode); \
    }
VELORAMA_OPEN(open)
VELORAMA_OPEN(open64)

#define VELORAMA_OPEN_AT(name)                                                              \
    extern "C" int name(int folder, const char* path, int flags, ...) {                     \
        va_list arguments;                                                                  \
        va_start(arguments, flags);                                                         \
        const mode_t mode = modeOf(flags, arguments);                                       \
        va_end(arguments);                                                                  \
        wait(path);                                                                         \
        return next<int (*)(int, const char*, int, ...)>(#name)(folder, path, flags, mode); \
    }
VELORAMA_OPEN_AT(openat)
VELORAMA_OPEN_AT(openat64)

// A type cannot stand in parentheses.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define VELORAMA_STAT(name, Buffer)                                     \
    extern "C" int name(const char* path, Buffer* found) {              \
        wait(path);                                                     \
        return next<int (*)(const char*, Buffer*)>(#name)(path, found); \
    }
// NOLINTEND(bugprone-macro-parentheses)
VELORAMA_STAT(stat, struct stat)
VELORAMA_STAT(stat64, struct stat64)
VELORAMA_STAT(lstat, struct stat)
VELORAMA_STAT(lstat64, struct stat64)

extern "C" int statx(int folder, const char* path, int flags, unsigned mask, struct statx* found) {
    wait(path);
    return next<int (*)(int, const char*, int, unsigned, struct statx*)>("statx")(
        folder, path, flags, mask, found);
}

extern "C" int access(const char* path, int mode) {
    wait(path);
    return next<int (*)(const char*, int)>("access")(path, mode);
}

extern "C" void* opendir(const char* path) {
    wait(path);
    return next<void* (*)(const char*)>("opendir")(path);
}

extern "C" ssize_t read(int file, void* bytes, size_t count) {
    waitForFile(file);
    return next<ssize_t (*)(int, void*, size_t)>("read")(file, bytes, count);
}

#include "webalbum/file_copies.h"

#include "core/cls_filefoldr.h"
#include "platform/files/exact_names.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>

namespace velorama {
namespace {

/// What the threads share. Places are taken in their order: of the copies that fail, all before the
/// first have been tried.
struct Copying {
    const std::vector<FileCopy>& copies;
    const QString& exact;
    const std::stop_token& stop;
    std::atomic<std::size_t> next = 0;
    std::atomic<int> done = 0;
    std::atomic<std::size_t> firstFailed;

    /// `each` is called behind each copy.
    void run(const std::function<void(int done)>& each);
};

void lower(std::atomic<std::size_t>& least, std::size_t value) {
    std::size_t known = least;
    while (value < known && !least.compare_exchange_weak(known, value)) {
    }
}

void Copying::run(const std::function<void(int done)>& each) {
    const ExactNames exactNames(exact);
    while (!stop.stop_requested() && firstFailed == copies.size()) {
        const std::size_t place = next++;
        if (place >= copies.size()) {
            return;
        }
        if (!clsFILEFOLDR().FileCopyNew(copies[place].source, copies[place].target)) {
            lower(firstFailed, place);
            return;
        }
        const int count = ++done;
        if (each) {
            each(count);
        }
    }
}

}  // namespace

std::optional<FileCopy> copyFiles(const std::vector<FileCopy>& copies, const QString& exact,
                                  const std::stop_token& stop,
                                  const std::function<void(int done)>& told) {
    Copying work{.copies = copies, .exact = exact, .stop = stop, .firstFailed = copies.size()};
    {
        std::vector<std::jthread> helpers;
        try {
            const unsigned processors = std::thread::hardware_concurrency();
            for (unsigned i = 1; i < std::min(processors, 4U); ++i) {
                helpers.emplace_back([&work] { work.run({}); });
            }
        } catch (const std::system_error&) {
            // Those that there are do it.
        }
        work.run(told);
    }
    const std::size_t failed = work.firstFailed;
    if (failed == copies.size()) {
        told(work.done);
        return std::nullopt;
    }
    return copies[failed];
}

}  // namespace velorama

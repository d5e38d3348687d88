#pragma once

#ifdef __linux__

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>

namespace velorama::test {

/// Holds the thread to what files let everybody do, also where the tests run as root.
class WithoutRights {
public:
    WithoutRights() {
        ::syscall(SYS_capget, &header_, before_.data());
        std::array<__user_cap_data_struct, 2> fewer = before_;
        fewer[0].effective &= ~((1U << CAP_DAC_OVERRIDE) | (1U << CAP_DAC_READ_SEARCH));
        ::syscall(SYS_capset, &header_, fewer.data());
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;
    ~WithoutRights() { ::syscall(SYS_capset, &header_, before_.data()); }

private:
    __user_cap_header_struct header_{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, 2> before_{};
};

}  // namespace velorama::test

#endif

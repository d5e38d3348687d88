#include "endurance/kill_rounds.h"

#include <iostream>

namespace velorama::endurance {

int killsToDo(int usual) {
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("VELORAMA_KILLS", &isNumber);
    return isNumber ? wanted : usual;
}

Moments::Moments() {
    bool isNumber = false;
    const int given = qEnvironmentVariableIntValue("VELORAMA_KILL_SEED", &isNumber);
    const std::uint32_t seed =
        isNumber ? static_cast<std::uint32_t>(given) : std::random_device()() >> 1;
    std::cout << "VELORAMA_KILL_SEED=" << seed << std::endl;
    random_.seed(seed);
}

std::uint32_t Moments::upTo(std::uint32_t most) {
    return std::uniform_int_distribution<std::uint32_t>(0, most)(random_);
}

int Toll::hits() const {
    int all = 0;
    for (const auto& [what, times] : hits_) {
        all += times;
    }
    return all;
}

void Toll::tell() const {
    std::cout << hits() << " kills:";
    for (const auto& [what, times] : hits_) {
        std::cout << ' ' << what << ' ' << times << ',';
    }
    std::cout << " and " << late_ << " came too late" << std::endl;
}

}  // namespace velorama::endurance

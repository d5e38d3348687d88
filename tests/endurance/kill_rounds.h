#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <map>
#include <random>
#include <string>

namespace velorama::endurance {

/// How many kills are asked for by VELORAMA_KILLS; `usual` without it.
int killsToDo(int usual);

/// Random moments by a seed that is told, and that VELORAMA_KILL_SEED gives.
class Moments {
public:
    Moments();
    /// From 0 to `most`.
    std::uint32_t upTo(std::uint32_t most);

private:
    std::mt19937 random_;
};

/// What became of the kills, to be told at the end.
class Toll {
public:
    void hit(const std::string& what) { ++hits_[what]; }
    /// The victim had come to its end before.
    void late() { ++late_; }
    int hits() const;
    void tell() const;

private:
    std::map<std::string, int> hits_;
    int late_ = 0;
};

}  // namespace velorama::endurance

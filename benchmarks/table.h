#pragma once

#include "contest.h"

namespace velorama::bench {

/// Prints the table's head, and one row of it as soon as it is measured.
void printHead();
void printRow(int number, const Row& row);

}  // namespace velorama::bench

#pragma once

#include <QApplication>

// Included by an entry that needs fonts: the fuzzer calls this before its first input.
extern "C" int LLVMFuzzerInitialize(int*, char*** words) {
    static int count = 1;
    // Never ended: what fonts hold would count as lost then.
    static const auto* application = new QApplication(count, *words);
    Q_UNUSED(application)
    return 0;
}

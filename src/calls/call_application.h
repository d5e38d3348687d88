#pragma once

#include <QApplication>
#include <QCoreApplication>

namespace velorama {

/// Words for an application object that is to read none: an album may be called "-style".
class NameOnly {
public:
    explicit NameOnly(char* program) : words_{program, nullptr} {}
    NameOnly(const NameOnly&) = delete;
    NameOnly& operator=(const NameOnly&) = delete;

    int& count() { return count_; }
    char** words() { return words_; }

private:
    int count_ = 1;
    char* words_[2];
};

/// An application object that knows controls and pictures and needs no display: nothing of the
/// user's desktop is asked for.
class HiddenApplication {
public:
    explicit HiddenApplication(char* program);

private:
    NameOnly name_;
    QApplication application_;
};

/// Leaves the process with that code where threads still work, as on a disk that does not answer,
/// and returns where none does.
void leaveThreads(int code);

}  // namespace velorama

#pragma once

#include <QHash>
#include <QString>

namespace velorama {

/// Tells by a file's name whether it is a picture of any kind, by what the system knows of endings.
/// One serves a single listing: each ending is asked for once, and after some hundreds of endings
/// no further one counts, so that a folder of a hundred thousand files costs no more than its
/// kinds.
class OtherPictures {
public:
    bool operator()(const QString& name);

private:
    QHash<QString, bool> known_;
};

}  // namespace velorama

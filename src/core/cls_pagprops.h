#pragma once

#include <QString>

namespace velorama {

/// Kind and size of a picture, read straight from its file's head without decoding it.
class clsPAGPROPS {
public:
    enum Kind : qint32 { Unknown = 0, Gif = 1, Jpeg = 2, Png = 3, Bmp = 4 };

    /// Analyses the file and keeps what it found until the next call; all zero for a missing file
    /// or one it does not know.
    void PictureFileInformation(const QString& Path);
    qint32 PictureAttribHeight() const { return PictureHeight; }
    qint32 PictureAttribWidth() const { return PictureWidth; }
    qint32 kind() const { return PictureKind; }
    qint32 depth() const { return PictureDepth; }

private:
    static clsPAGPROPS found(Kind kind, qint32 depth, qint32 width, qint32 height);

    qint32 PictureKind = 0;
    qint32 PictureDepth = 0;
    qint32 PictureHeight = 0;
    qint32 PictureWidth = 0;
};

}  // namespace velorama

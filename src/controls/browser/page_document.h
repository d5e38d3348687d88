#pragma once

#include <QImage>
#include <QTextDocument>

namespace velorama {

/// A document that asks for nothing by itself: it opens no file and unpacks no picture, whatever
/// the text in it says. It shows what it has been given with addResource and stays blank where a
/// picture is missing.
class PageDocument : public QTextDocument {
    Q_OBJECT
public:
    /// In place of setHtml.
    void read(const QString& html);

protected:
    QVariant loadResource(int type, const QUrl& address) override;

private:
    bool reading_ = false;
};

/// Stands where a picture is missing: in place of none at all Qt opens the file of that name.
QImage noPicture();

}  // namespace velorama

#pragma once

#include <QObject>

namespace velorama {

/// The file test of the thumbnail and slide code, and the way to the pages of the help centre.
class clsLIBRARY : public QObject {
    Q_OBJECT
public:
    bool FileExists(const QString& Path) const;

    void subHELPCENTERPAGEINDEX() const;
    /// Asks for a page by its full address; without a help centre nothing happens.
    void subHELPCENTERPAGEOPEN(const QString& Page) const;

signals:
    /// Whoever shows help pages navigates there, and shows its window if that is not up.
    void helpPageWanted(const QString& address) const;
};

}  // namespace velorama

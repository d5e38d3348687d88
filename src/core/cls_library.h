#pragma once

#include <QString>

#include <functional>

namespace velorama {

/// The file test of the thumbnail and slide code, and the way to the pages of the help centre.
class clsLIBRARY {
public:
    bool FileExists(const QString& Path) const;

    void subHELPCENTERPAGEINDEX() const;
    /// Hands the page's full address to the help centre; without one nothing happens.
    void subHELPCENTERPAGEOPEN(const QString& Page) const;

    /// Who shows help pages: navigates to an address, and shows its window if that is not up.
    using HelpCenter = std::function<void(const QString& address)>;
    static void showHelpWith(HelpCenter helpCenter);
};

}  // namespace velorama

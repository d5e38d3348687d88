#pragma once

#include "controls/browser/page_document.h"
#include "controls/browser/page_text.h"

#include <QUrl>

#include <memory>

namespace velorama {

/// The page as a document, its links and pictures with full addresses. One of so many tags, cells
/// or tables in tables that it would take long to lay out is shown as it is written.
std::unique_ptr<PageDocument> makePage(const QString& text, PageKind kind, const QUrl& address,
                                       const QFont& font);
/// What is shown where a page cannot be had, with a link that tries again; `substitute`, HTML that
/// may be empty, below it.
QString errorPage(const QUrl& address, const QString& substitute);

}  // namespace velorama

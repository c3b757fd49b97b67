#include "Keelbright/screens/DesktopWorkspace.h"

#include <QDesktopServices>
#include <QUrl>

namespace keelbright {

void DesktopWorkspace::open(const FileURL& url)
{
    // The encoded form carries names that are no text.
    QDesktopServices::openUrl(QUrl::fromEncoded(url.absoluteString().toLatin1(), QUrl::StrictMode));
}

} // namespace keelbright

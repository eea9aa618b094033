#include "HelpBrowser.h"

#include "HelpCollection.h"

#include <QDesktopServices>
#include <QFileInfo>

namespace {

const QString CompiledScheme = QStringLiteral("qthelp");

} // namespace

HelpBrowser::HelpBrowser(HelpCollection& collection, QWidget* parent)
    : QTextBrowser(parent)
    , m_collection(collection)
{
    setOpenLinks(false);
    connect(this, SIGNAL(anchorClicked(QUrl)), this, SLOT(onAnchorClicked(QUrl)));
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name)
{
    const QUrl address = source().resolved(name);
    if (address.scheme() == CompiledScheme)
        return m_collection.data(address);
    return QTextBrowser::loadResource(type, name);
}

void HelpBrowser::onAnchorClicked(const QUrl& link)
{
    const QUrl address = source().resolved(link);
    const bool isInFolder = address.isLocalFile() && !m_folder.isEmpty()
        && QFileInfo(address.toLocalFile())
               .canonicalFilePath()
               .startsWith(QFileInfo(m_folder).canonicalFilePath() + QLatin1Char('/'));
    if (address.scheme() == CompiledScheme || isInFolder)
        setSource(address);
    else if (address.scheme().startsWith(QLatin1String("http")))
        QDesktopServices::openUrl(address);
}

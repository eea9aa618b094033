#include "DialogConstants.h"
#include "GameLocator.h"
#include "ScanForGamesDialog.h"

#include <HVS.h>

#include <QtConcurrentRun>
#include <QThread>
#include <QVector>

using namespace DialogConstants;

namespace {

GameSignature signatureOf(const QDomElement& element)
{
    return {element.attribute(QStringLiteral("key")), element.attribute(QStringLiteral("value")),
        element.attribute(QStringLiteral("executable"))};
}

QDomElement firstSignature(const QDomElement& profile)
{
    return profile.firstChildElement(QStringLiteral("signature"));
}

QDomElement nextSignature(const QDomElement& signature)
{
    return signature.nextSiblingElement(QStringLiteral("signature"));
}

QDomElement nextProfile(const QDomElement& profile)
{
    return profile.nextSiblingElement(QStringLiteral("profile"));
}

QVector<GameSignature> allSignatures(const QDomElement& firstProfile)
{
    QVector<GameSignature> signatures;
    for (QDomElement profile = firstProfile; !profile.isNull(); profile = nextProfile(profile)) {
        for (QDomElement each = firstSignature(profile); !each.isNull(); each = nextSignature(each))
            signatures.append(signatureOf(each));
    }
    return signatures;
}

} // namespace

void ScanForGamesDialog::startWorker()
{
    m_watcher.setFuture(QtConcurrent::run(&ScanForGamesDialog::scan));
    m_isWatched.release();
    connect(&m_watcher, SIGNAL(finished()), this, SLOT(onScanFinished()));
}

void ScanForGamesDialog::endWorker()
{
    m_watcher.cancel();
    m_watcher.waitForFinished();
    // A worker that was cancelled before it began has not said so itself.
    m_isTaken.release();
}

bool ScanForGamesDialog::scan()
{
    ScanForGamesDialog* const dialog = s_dialog;
    dialog->m_isTaken.release();
    dialog->m_isWatched.acquire();
    return dialog->scanDatabase();
}

bool ScanForGamesDialog::scanDatabase()
{
    if (!HVS::FileReadDom(GameDatabase, m_database, true))
        return false;
    QMetaObject::invokeMethod(this, "onGameDatabaseRead");
    QDomElement profile =
        m_database.firstChildElement(QStringLiteral("profiles")).firstChildElement(QStringLiteral("profile"));
    if (profile.isNull())
        return false;
    const QFuture<bool> future = m_watcher.future();
    const auto isCancelled = [&future] {
        return future.isCanceled();
    };
    const GameLocator locator(allSignatures(profile), isCancelled);
    while (!isCancelled() && !profile.isNull()) {
        scanGame(profile, locator);
        profile = nextProfile(profile);
        QThread::msleep(ScanRest);
    }
    return true;
}

void ScanForGamesDialog::scanGame(const QDomElement& profile, const GameLocator& locator)
{
    const QString profileName = profile.attribute(QStringLiteral("name"));
    for (QDomElement each = firstSignature(profile); !each.isNull(); each = nextSignature(each)) {
        QMetaObject::invokeMethod(this, "onGameScanned", Q_ARG(QString, profileName),
            Q_ARG(QString, each.attribute(QStringLiteral("name"))),
            Q_ARG(QString, locator.locate(signatureOf(each))), Q_ARG(QDomElement, profile));
    }
}

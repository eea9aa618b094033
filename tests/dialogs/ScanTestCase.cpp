#include "ScanTestCase.h"

#include <cAnimatedPixmapWidget.h>

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace {

QString textOf(const QListWidgetItem* row)
{
    return QStringLiteral("%1[%2] %3")
        .arg(row->flags() & Qt::ItemIsEnabled ? QString() : QStringLiteral("-"),
            row->checkState() == Qt::Checked ? QStringLiteral("x") : QStringLiteral(" "), row->text());
}

} // namespace

Scan::Scan()
    : dialog(nullptr)
    , list(dialog.findChild<QListWidget*>())
    , animation(dialog.findChild<cAnimatedPixmapWidget*>())
{
    // Apart from their places the two labels differ in that one begins with a text.
    for (auto* const label : dialog.findChildren<QLabel*>())
        (label->text().isEmpty() ? count : status) = label;
}

QPushButton* Scan::button(const QString& text) const
{
    for (auto* const each : dialog.findChildren<QPushButton*>()) {
        if (each->text() == text)
            return each;
    }
    return nullptr;
}

bool Scan::isFinished() const
{
    return ok()->isEnabled();
}

QStringList Scan::visibleRows() const
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) {
        if (!list->item(i)->isHidden())
            texts.append(textOf(list->item(i)));
    }
    return texts;
}

QStringList Scan::allRows() const
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) {
        texts.append(
            textOf(list->item(i)) + (list->item(i)->isHidden() ? QStringLiteral(" hidden") : QString()));
    }
    return texts;
}

cScanEntry* Scan::entryOf(const QListWidgetItem* row)
{
    return row->data(Qt::UserRole).value<cScanEntry*>();
}

void Scan::report(const QString& name, const QString& edition, const QString& target)
{
    QDomDocument document;
    QVERIFY(QMetaObject::invokeMethod(&dialog, "onGameScanned", Qt::DirectConnection, Q_ARG(QString, name),
        Q_ARG(QString, edition), Q_ARG(QString, target),
        Q_ARG(QDomElement, document.createElement("profile"))));
}

void ScanTestCase::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_files = std::make_unique<GameFiles>();
    m_host->answer("getProfileByName", [](const RecordedCall& call) {
        cJsonValue record;
        if (call.values.first().toString().contains("known"))
            record["uid"] = "{1}";
        return QVariant::fromValue(record);
    });
}

void ScanTestCase::cleanup()
{
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    m_host.reset();
    m_files.reset();
}

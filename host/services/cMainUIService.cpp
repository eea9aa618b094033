#include "cMainUIService.h"

#include "IHostWindow.h"
#include "MessageDialog.h"

#include <QApplication>
#include <QPixmap>
#include <QWidget>

namespace {

/// What a message stands over: the dialog that is being answered, which alone gives the keyboard away, or
/// else the window.
QWidget* below(QWidget* window)
{
    QWidget* const dialog = QApplication::activeModalWidget();
    return dialog ? dialog : window;
}

} // namespace

cMainUIService::cMainUIService(QObject* parent)
    : IMainUI(parent)
{ }

void cMainUIService::setVisible(bool visible)
{
    QWidget* const widget = window();
    if (!widget)
        return;
    widget->setVisible(visible);
    if (visible) {
        widget->raise();
        widget->activateWindow();
    }
}

QWidget* cMainUIService::window()
{
    return m_window ? m_window->widget() : nullptr;
}

void cMainUIService::saveScreenshot(const QString& fileName)
{
    if (m_window && !m_window->widget()->grab().save(fileName))
        m_window->showMessage(tr("The picture can't be saved as %1.").arg(fileName));
}

void cMainUIService::raiseDeviceBar()
{
    if (m_window)
        m_window->raiseDeviceBar();
}

bool cMainUIService::isDeviceBarUnderMouse()
{
    return m_window && m_window->isDeviceBarUnderMouse();
}

QString cMainUIService::getActiveDeviceId()
{
    return m_window ? m_window->activeDeviceId() : QString();
}

void cMainUIService::warning(const QString& titleText, const QString& warningText)
{
    auto* const dialog =
        new MessageDialog(MessageDialog::Kind::Warning, titleText, warningText, below(window()));
    dialog->addChoice(QDialog::Accepted, tr("OK"), true);
    MessageDialog::run(dialog, QDialog::Rejected);
}

bool cMainUIService::yesno(const QString& titleText, const QString& questionText)
{
    auto* const dialog =
        new MessageDialog(MessageDialog::Kind::Question, titleText, questionText, below(window()));
    dialog->addChoice(QDialog::Accepted, tr("Yes"));
    dialog->addChoice(QDialog::Rejected, tr("No"), true);
    return MessageDialog::run(dialog, QDialog::Rejected) == QDialog::Accepted;
}

ConflictResolution::ConflictResolution_t cMainUIService::conflict(const QString& titleText,
    const QString& descriptionText, const QString& itemText, const QString& replaceText,
    const QString& doNothingText, const QString& duplicateText)
{
    const auto textOr = [](const QString& text, const QString& otherwise) {
        return text.isEmpty() ? otherwise : text;
    };
    auto* const dialog =
        new MessageDialog(MessageDialog::Kind::Question, titleText, descriptionText, below(window()));
    if (!itemText.isEmpty())
        dialog->addItemText(itemText);
    dialog->addChoice(ConflictResolution::Replace, textOr(replaceText, tr("Replace")));
    dialog->addChoice(ConflictResolution::Duplicate, textOr(duplicateText, tr("Keep Both")));
    dialog->addChoice(ConflictResolution::DoNothing, textOr(doNothingText, tr("Do Nothing")), true);
    dialog->setEscapeResult(ConflictResolution::DoNothing);
    return ConflictResolution::ConflictResolution_t(
        MessageDialog::run(dialog, ConflictResolution::DoNothing));
}

void cMainUIService::info(const QString& titleText, const QString& messageText)
{
    auto* const dialog =
        new MessageDialog(MessageDialog::Kind::Information, titleText, messageText, below(window()));
    dialog->addChoice(QDialog::Accepted, tr("OK"), true);
    MessageDialog::run(dialog, QDialog::Rejected);
}

#include "DialogSetup.h"

#include "DialogConstants.h"

#include <QDialog>
#include <QIcon>
#include <QObject>
#include <QVariant>

namespace {

/// Takes a dialog from its parent when that goes. The callers have their dialogs on the stack, where nobody
/// else may delete them.
class ParentGuard : public QObject
{
    Q_OBJECT

public:
    explicit ParentGuard(QDialog& dialog)
        : QObject(&dialog)
        , m_dialog(dialog)
    {
        // A widget says so before it deletes its children.
        if (dialog.parentWidget())
            connect(dialog.parentWidget(), SIGNAL(destroyed()), this, SLOT(release()));
    }

private Q_SLOTS:
    void release()
    {
        m_dialog.setParent(nullptr, m_dialog.windowFlags());
        m_dialog.reject();
    }

private:
    QDialog& m_dialog;
};

} // namespace

void DialogSetup::apply(QDialog& dialog)
{
    new ParentGuard(dialog);
    dialog.setWindowFlags(
        Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setWindowIcon(QIcon(DialogConstants::WindowIcon));
}

void DialogSetup::setGray(QWidget& button)
{
    button.setProperty(DialogConstants::UiType, QString(DialogConstants::GrayButton));
}

#include "DialogSetup.moc"

#include "KeyMenuButton.h"

#include <QAction>
#include <QMenu>

namespace {

constexpr int FirstMissingFunctionKey = Qt::Key_F13;
constexpr int LastMissingFunctionKey = Qt::Key_F24;
/// Zero stands for a separator.
constexpr int Keys[] = {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Meta, Qt::Key_Menu, 0,
    Qt::Key_Print, Qt::Key_ScrollLock, Qt::Key_Pause, Qt::Key_CapsLock, Qt::Key_NumLock, 0};

} // namespace

KeyMenuButton::KeyMenuButton(const QString& text, QWidget* parent)
    : QPushButton(text, parent)
{
    setAutoDefault(false);
    auto* const menu = new QMenu(this);
    const auto add = [](QMenu* target, int code) {
        target->addAction(KeyNames::toText(code))->setData(code);
    };
    for (const int code : Keys) {
        if (code)
            add(menu, code);
        else
            menu->addSeparator();
    }
    QMenu* const functionKeys = menu->addMenu(tr("F13 to F24"));
    for (int code = FirstMissingFunctionKey; code <= LastMissingFunctionKey; ++code)
        add(functionKeys, code);
    connect(menu, SIGNAL(triggered(QAction*)), this, SLOT(onTriggered(QAction*)));
    setMenu(menu);
}

void KeyMenuButton::onTriggered(QAction* action)
{
    emit keyChosen({action->data().toInt(), 0});
}

#include "DialogParts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace DialogParts {

void prepare(QDialog& dialog, const QString& title)
{
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setWindowTitle(title);
    dialog.setWindowIcon(QIcon(QStringLiteral("MainApp:/Resources/images/VeltranoBlackLogo.png")));
    dialog.setProperty("uiType", QStringLiteral("MessageDialog"));
}

QVBoxLayout* createLayout(QDialog& dialog)
{
    auto* const layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(12);
    return layout;
}

QLabel* createHeading(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("uiType", QStringLiteral("DialogHeading"));
    return label;
}

QLabel* createText(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setProperty("uiType", QStringLiteral("DialogText"));
    return label;
}

QHBoxLayout* createButtons(const QList<QPushButton*>& left, const QList<QPushButton*>& right)
{
    auto* const layout = new QHBoxLayout;
    layout->setSpacing(10);
    for (QPushButton* button : left)
        layout->addWidget(button);
    layout->addStretch(1);
    for (QPushButton* button : right)
        layout->addWidget(button);
    return layout;
}

} // namespace DialogParts

#include "MessageDialog.h"

#include "DialogParts.h"
#include "HostPalette.h"
#include "ServiceConstants.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QVariant>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// The property in which a button keeps its choice.
constexpr const char* ResultProperty = "choiceResult";

/// The sign of a kind: a ring, for a warning a triangle, with a character in it.
QPixmap drawSign(MessageDialog::Kind kind, qreal pixelRatio)
{
    const int side = ServiceConstants::MessageSignSize;
    QPixmap pixmap(QSize(side, side) * pixelRatio);
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isWarning = kind == MessageDialog::Kind::Warning;
    const QColor color(isWarning ? HostPalette::Amber : HostPalette::LightTeal);
    painter.setPen(QPen(color, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QRectF box = QRectF(0, 0, side, side).adjusted(3, 3, -3, -3);
    QRectF characterBox = box;
    if (isWarning) {
        painter.drawPolygon(QPolygonF(
            {QPointF(box.center().x(), box.top()), box.bottomRight(), QPointF(box.left(), box.bottom())}));
        characterBox.setTop(box.top() + box.height() * 0.28);
    } else {
        painter.drawEllipse(box);
    }
    QFont font;
    font.setPixelSize(side / 2);
    font.setBold(true);
    painter.setFont(font);
    const QString character = isWarning         ? QStringLiteral("!")
        : kind == MessageDialog::Kind::Question ? QStringLiteral("?")
                                                : QStringLiteral("i");
    painter.drawText(characterBox, Qt::AlignCenter, character);
    return pixmap;
}

} // namespace

MessageDialog::MessageDialog(Kind kind, const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent, DialogParts::Flags)
    , m_wholeText(title + QStringLiteral("\n\n") + text)
{
    DialogParts::prepare(*this, title);

    auto* const sign = new QLabel;
    sign->setPixmap(drawSign(kind, devicePixelRatioF()));
    sign->setAlignment(Qt::AlignTop);

    m_texts = new QVBoxLayout;
    m_texts->setSpacing(10);
    QLabel* const heading = DialogParts::createHeading(title);
    heading->setWordWrap(true);
    heading->setVisible(!title.isEmpty());
    m_texts->addWidget(heading);
    m_texts->addWidget(createText(text, "DialogText"));

    auto* const body = new QHBoxLayout;
    body->setSpacing(18);
    body->addWidget(sign, 0, Qt::AlignTop);
    body->addLayout(m_texts, 1);

    m_choices = new QHBoxLayout;
    m_choices->setSpacing(10);
    m_choices->addStretch(1);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 22, 24, 20);
    layout->setSpacing(22);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(body);
    layout->addLayout(m_choices);
}

QWidget* MessageDialog::createText(const QString& text, const char* uiType)
{
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setProperty("uiType", QLatin1String(uiType));
    label->ensurePolished();
    const int height = label->heightForWidth(ServiceConstants::MessageTextWidth);
    if (height <= ServiceConstants::MessageTextMaxHeight) {
        label->setFixedSize(
            ServiceConstants::MessageTextWidth, std::max(height, label->fontMetrics().height()));
        return label;
    }
    // Reached by Tab, so that the keyboard can scroll it.
    auto* const area = new QScrollArea;
    area->setWidget(label);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::StrongFocus);
    area->setFixedSize(ServiceConstants::MessageTextWidth, ServiceConstants::MessageTextMaxHeight);
    return area;
}

void MessageDialog::addItemText(const QString& text)
{
    m_wholeText += QStringLiteral("\n\n") + text;
    m_texts->addWidget(createText(text, "DialogItem"));
}

QString MessageDialog::withShortcut(const QString& text)
{
    QString caption;
    bool isDone = false;
    for (const QChar c : text) {
        if (!isDone && c.isLetterOrNumber() && !m_shortcuts.contains(c.toUpper())) {
            m_shortcuts += c.toUpper();
            caption += QLatin1Char('&');
            isDone = true;
        }
        caption += c;
        // In the text it is a character.
        if (c == QLatin1Char('&'))
            caption += c;
    }
    return caption;
}

void MessageDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(m_wholeText);
        return;
    }
    // A choice answers its letter alone, too.
    const QList<QPushButton*> buttons = findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (event->modifiers() == Qt::NoModifier && !button->shortcut().isEmpty()
            && event->key() == (button->shortcut()[0] & ~int(Qt::MODIFIER_MASK))) {
            button->click();
            return;
        }
    }
    QDialog::keyPressEvent(event);
}

void MessageDialog::addChoice(int result, const QString& text, bool isDefault)
{
    auto* const button = new QPushButton(withShortcut(text));
    button->setAccessibleName(text);
    button->setProperty(ResultProperty, result);
    button->setAutoDefault(true);
    connect(button, SIGNAL(clicked()), this, SLOT(onChoice()));
    m_choices->addWidget(button);
    if (isDefault) {
        button->setDefault(true);
        button->setFocus();
    }
}

void MessageDialog::reject()
{
    done(m_escapeResult);
}

void MessageDialog::onChoice()
{
    done(sender()->property(ResultProperty).toInt());
}

int MessageDialog::run(MessageDialog* dialog, int otherwise)
{
    const QPointer<MessageDialog> guard(dialog);
    const int result = dialog->exec();
    if (!guard)
        return otherwise;
    delete dialog;
    return result;
}

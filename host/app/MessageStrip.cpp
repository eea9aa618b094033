#include "MessageStrip.h"

#include "AppConstants.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

#include <algorithm>

using namespace AppConstants;

MessageStrip::MessageStrip(QWidget* parent)
    : QFrame(parent)
{
    setProperty("uiType", QStringLiteral("MessageStrip"));
    m_text = new QLabel;
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_count = new QLabel;
    m_count->setProperty("uiType", QStringLiteral("QuietText"));
    m_button = new QPushButton(tr("Dismiss"));
    connect(m_button, SIGNAL(clicked()), this, SLOT(dismiss()));

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 10, 12, 10);
    layout->setSpacing(16);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_count);
    layout->addWidget(m_button);
    hide();
}

void MessageStrip::addMessage(const QString& text)
{
    if (text.isEmpty() || m_messages.contains(text))
        return;
    m_messages.append(text);
    showFirst();
}

void MessageStrip::dismiss()
{
    if (!m_messages.isEmpty())
        m_messages.removeFirst();
    showFirst();
}

void MessageStrip::showFirst()
{
    if (m_messages.isEmpty()) {
        hide();
        return;
    }
    const bool isNew = m_text->text() != m_messages.first() || isHidden();
    m_text->setText(m_messages.first());
    m_count->setText(tr("1 of %1").arg(m_messages.size()));
    m_count->setVisible(m_messages.size() > 1);
    setAccessibleName(m_messages.first());
    placeIn(m_area);
    show();
    raise();
    if (isNew) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void MessageStrip::placeIn(const QRect& area)
{
    m_area = area;
    const int width = std::max(area.width() - 2 * StripMargin, minimumSizeHint().width());
    layout()->activate();
    const int wanted = layout()->hasHeightForWidth() ? layout()->heightForWidth(width) : sizeHint().height();
    const int height = std::max(wanted, minimumSizeHint().height());
    setGeometry(area.left() + StripMargin, area.bottom() + 1 - StripMargin - height, width, height);
}

#include "LayoutText.h"

#include <QBoxLayout>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <algorithm>

namespace {

QString gapText(const QSpacerItem& gap)
{
    const QSizePolicy policy = gap.sizePolicy();
    const auto isEither = [&policy](QSizePolicy::Policy wanted) {
        return policy.horizontalPolicy() == wanted || policy.verticalPolicy() == wanted;
    };
    if (isEither(QSizePolicy::Expanding))
        return QStringLiteral("stretch");
    const QSize size = gap.sizeHint();
    if (isEither(QSizePolicy::Fixed))
        return QStringLiteral("spacing %1").arg(std::max(size.width(), size.height()));
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString widgetText(const QWidget& widget)
{
    constexpr int beginning = 6;
    // What stands in a field is not the field's.
    if (!widget.inherits("QLineEdit")) {
        for (const char* const property : {"text", "title"}) {
            const QString text = widget.property(property).toString();
            if (!text.isEmpty())
                return text.left(beginning);
        }
    }
    return QString::fromLatin1(widget.metaObject()->className());
}

QString itemText(QLayoutItem& item)
{
    if (const QSpacerItem* const gap = item.spacerItem())
        return gapText(*gap);
    return item.layout() ? layoutText(*item.layout()) : widgetText(*item.widget());
}

} // namespace

QString layoutText(const QLayout& layout)
{
    const auto* const box = qobject_cast<const QBoxLayout*>(&layout);
    QStringList parts;
    for (int i = 0; i < layout.count(); ++i) {
        const int factor = box ? box->stretch(i) : 0;
        parts.append(
            itemText(*layout.itemAt(i)) + (factor == 0 ? QString() : QStringLiteral("*%1").arg(factor)));
    }
    const QLatin1String name(qobject_cast<const QVBoxLayout*>(&layout) ? "V" : "H");
    return name + QLatin1Char('[') + parts.join(QLatin1String(", ")) + QLatin1Char(']');
}

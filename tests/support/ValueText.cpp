#include "ValueText.h"

#include "ServiceInterfaces.h"

#include <cJsonValue.h>
#include <IFeatureView.h>
#include <JsonText.h>
#include <MKey.h>

#include <QPixmap>
#include <QStringList>

namespace {

QString objectText(const QObject* object)
{
    return object ? QString::fromLatin1(object->metaObject()->className()) : QStringLiteral("null");
}

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

QString valueText(const QVariant& value)
{
    const int type = value.userType();
    if (type == QMetaType::QString || type == QMetaType::QByteArray || type == QMetaType::QUuid)
        return quoted(value.toString());
    if (type == QMetaType::QStringList) {
        QStringList texts;
        for (const QString& text : value.toStringList())
            texts.append(quoted(text));
        return QLatin1Char('[') + texts.join(QLatin1String(", ")) + QLatin1Char(']');
    }
    if (type == qMetaTypeId<cJsonValue>())
        return QString::fromUtf8(HVS::toJsonText(value.value<cJsonValue>()));
    if (type == qMetaTypeId<QDomElement>())
        return QLatin1Char('<') + value.value<QDomElement>().tagName() + QLatin1Char('>');
    if (type == QMetaType::QPixmap) {
        const QSize size = value.value<QPixmap>().size();
        return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    }
    // The address as it stands: value() casts along the meta-objects, and a view that comes from the library
    // has an interface of its own there.
    if (type == qMetaTypeId<IFeatureView*>())
        return objectText(*static_cast<IFeatureView* const*>(value.constData()));
    if (QMetaType::typeFlags(type) & QMetaType::PointerToQObject)
        return objectText(value.value<QObject*>());
    if (QMetaType::typeFlags(type) & QMetaType::IsEnumeration)
        return QString::number(*static_cast<const int*>(value.constData()));
    return value.canConvert<QString>() ? value.toString() : QString::fromLatin1(value.typeName());
}

#pragma once

#include "FakeHostObjects.h"

#include <cDpiSettings.h>
#include <cJsonValue.h>
#include <cLCDBitmap.h>
#include <cPointerProperties.h>

#include <QByteArray>
#include <QDomDocument>
#include <QPixmap>
#include <QScriptEngine>
#include <QScriptValue>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVariant>
#include <QWidget>

#include <memory>
#include <type_traits>

/// Values of every type that a service's operation takes or returns.
namespace Samples {

/// What the pointers among the samples point to. One lives while tests run.
struct Objects
{
    QObject object;
    QWidget widget;
    QScriptEngine engine;
    FakeFeatureView view;
    QDomDocument document;
};
inline std::unique_ptr<Objects> objects;

/// A value that differs from T {} and, where the type has enough values, from those of other seeds. For a
/// bool that means: true for an odd seed, false for an even one.
template<typename T>
T sample(int seed)
{
    QString text = QStringLiteral("text %1").arg(seed);
    if constexpr (std::is_same_v<T, bool>) {
        return seed % 2 != 0;
    } else if constexpr (std::is_enum_v<T>) {
        return T(1 + seed % 2);
    } else if constexpr (std::is_same_v<T, int>) {
        return 1000 + seed;
    } else if constexpr (std::is_same_v<T, QString>) {
        return text;
    } else if constexpr (std::is_same_v<T, const char*>) {
        return "1slotToCall(QString)";
    } else if constexpr (std::is_same_v<T, QByteArray>) {
        return text.toUtf8();
    } else if constexpr (std::is_base_of_v<QList<QString>, T>) {
        T list;
        list << text << QString() << text;
        return list;
    } else if constexpr (std::is_same_v<T, QUuid>) {
        return QUuid(uint(seed), 1, 2, 3, 4, 5, 6, 7, 8, 9, 10);
    } else if constexpr (std::is_same_v<T, QPixmap>) {
        QPixmap pixmap(seed, 2 * seed);
        pixmap.fill(Qt::red);
        return pixmap;
    } else if constexpr (std::is_same_v<T, cJsonValue>) {
        cJsonValue record;
        record["key"][QString("nested")] = text;
        return record;
    } else if constexpr (std::is_same_v<T, QDomElement>) {
        return objects->document.createElement(QStringLiteral("element%1").arg(seed));
    } else if constexpr (std::is_same_v<T, cDpiSettings>) {
        return cDpiSettings {{{seed, seed + 1}, {400, 800}}, 1, 0};
    } else if constexpr (std::is_same_v<T, cPointerProperties>) {
        return cPointerProperties {sample<cDpiSettings>(seed), seed, true, 500};
    } else if constexpr (std::is_same_v<T, QScriptValue>) {
        return QScriptValue(seed);
    } else if constexpr (std::is_same_v<T, QObject*> || std::is_same_v<T, Qt::HANDLE>) {
        return &objects->object;
    } else if constexpr (std::is_same_v<T, QWidget*>) {
        return &objects->widget;
    } else if constexpr (std::is_same_v<T, QScriptEngine*>) {
        return &objects->engine;
    } else if constexpr (std::is_same_v<T, IFeatureView*>) {
        return &objects->view;
    } else if constexpr (std::is_same_v<T, cMacroTypePtr>) {
        return QSharedPointer<FakeMacroType>::create();
    } else if constexpr (std::is_same_v<T, IMacroTypePtrList>) {
        return {sample<cMacroTypePtr>(seed), cMacroTypePtr()};
    } else if constexpr (std::is_same_v<T, cAbstractDevicePtr>) {
        return QSharedPointer<FakeDevice>::create();
    } else if constexpr (std::is_same_v<T, cAbstractDeviceList>) {
        return {sample<cAbstractDevicePtr>(seed), cAbstractDevicePtr()};
    } else if constexpr (std::is_same_v<T, cDeviceSettingsPtr>) {
        return QSharedPointer<FakeDeviceSettings>::create();
    } else if constexpr (std::is_same_v<T, cAppletOnDeviceListPtr>) {
        return QSharedPointer<FakeAppletList>::create();
    } else if constexpr (std::is_same_v<T, cLCDDeviceListPtr>) {
        return QSharedPointer<FakeLCDDeviceList>::create();
    } else {
        static_assert(std::is_same_v<T, cLCDBitmapPtr>, "a type without a sample");
        return cLCDBitmapPtr::create();
    }
}

/// True if the two are the same value; for objects, if they are the same object.
template<typename T>
bool same(const T& a, const T& b)
{
    if constexpr (std::is_same_v<T, QPixmap>)
        return a.cacheKey() == b.cacheKey();
    else if constexpr (std::is_same_v<T, QScriptValue>)
        return a.isValid() ? a.strictlyEquals(b) : !b.isValid();
    else
        return a == b;
}

/// True if a recorded argument holds the value that was passed.
template<typename T>
bool holds(const QVariant& argument, const T& value)
{
    // A RecordingHost keeps the text and not the pointer.
    if constexpr (std::is_same_v<T, const char*>)
        return argument.toByteArray() == value;
    else
        return argument.canConvert<T>() && same(argument.value<T>(), value);
}

} // namespace Samples

#pragma once

#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>
#include <QStringList>

/// What a class itself adds to its meta-object, in order, as its users see it by name.
namespace MetaMembers {

inline QStringList methodsOf(const QMetaObject& meta, QMetaMethod::MethodType type)
{
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == type)
            found.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    return found;
}

inline QStringList signalsOf(const QMetaObject& meta)
{
    return methodsOf(meta, QMetaMethod::Signal);
}

inline QStringList slotsOf(const QMetaObject& meta)
{
    return methodsOf(meta, QMetaMethod::Slot);
}

/// As in "double opacity".
inline QStringList propertiesOf(const QMetaObject& meta)
{
    QStringList found;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        found.append(QString::fromLatin1(property.typeName()) + ' ' + QString::fromLatin1(property.name()));
    }
    return found;
}

} // namespace MetaMembers

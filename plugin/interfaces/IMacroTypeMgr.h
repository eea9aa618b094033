#pragma once

#include "IMacroType.h"

#include <cJsonValue.h>

#include <QList>
#include <QObject>
#include <QString>

/// The macro types, which are plug-ins of the host.
class IMacroTypeMgr : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Adds a type; false if its id is taken or the pointer is null.
    Q_INVOKABLE virtual bool registerMacroType(const cMacroTypePtr& macroType) = 0;

    /// Removes a type; false if it is not known.
    Q_INVOKABLE virtual bool unregisterMacroType(const cMacroTypePtr& macroType) = 0;

    /// The type that has a command's `namespace`, or a null pointer.
    Q_INVOKABLE virtual cMacroTypePtr getMacroTypeByID(const QString& macroTypeID) = 0;

    /// All types, in the order in which the editor shows their icons.
    Q_INVOKABLE virtual IMacroTypePtrList getAllMacroTypes() = 0;

    /// The types that fit a control type.
    Q_INVOKABLE virtual IMacroTypePtrList getMacroTypesByControlTypeID(const QString& controlTypeID) = 0;

    /// The control types that the type described by the info record fits.
    Q_INVOKABLE virtual QList<QString> getControlTypeIDsByMacroType(const cJsonValue& macroType) = 0;
};

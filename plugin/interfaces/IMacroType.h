#pragma once

#include "IPlayState.h"

#include <cJsonValue.h>

#include <QDomDocument>
#include <QDomElement>
#include <QList>
#include <QObject>
#include <QSharedPointer>

class IMacroEditor;

/// A type of commands. Types are known to IMacroTypeMgr and called directly.
class IMacroType : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The type's info record: `uid`, `displayname`, `iconpath` and `control_types`, an array of objects
    /// with one `control_type` each.
    virtual cJsonValue info() = 0;

    /// A new page that edits the `data` of the command record; the record is null for a new command. The
    /// caller owns the page.
    virtual IMacroEditor* editor(cJsonValue macroData) = 0;

    /// The `data` that the element describes; null if it does not describe one.
    virtual cJsonValue XmlToJson(QDomElement macroDataDomElement) = 0;

    /// The element, made by `doc`, that describes the `data` of a command record.
    virtual QDomElement JsonToXml(QDomDocument doc, cJsonValue macro) = 0;

    /// A run of the command; a null pointer if the record is not of this type.
    virtual cPlayStatePtr createPlayState(cJsonValue macro) = 0;

    /// True if a command of this type can repeat.
    virtual bool isRepeatable() = 0;

    /// True if users make no commands of this type: it has no icon and no entry of its own.
    virtual bool isPrivate() = 0;

    /// True if a command's name follows from its data.
    virtual bool isFixedName() = 0;

    /// Place in the order of types, the smallest first.
    virtual int getPriority() = 0;
};

using cMacroTypePtr = QSharedPointer<IMacroType>;
using IMacroTypePtrList = QList<cMacroTypePtr>;

Q_DECLARE_METATYPE(cMacroTypePtr)
Q_DECLARE_METATYPE(IMacroTypePtrList)

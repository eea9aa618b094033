#pragma once

#include <cJsonValue.h>

#include <QObject>
#include <QString>
#include <QStringList>

/// A tree of named values, which survives a restart.
///
/// A path joins the names from the root with "/", as in "profiler/lastProfile". A missing path, and one
/// whose value is of another type, reads as the given default, or as null, 0, false or an empty text
/// where none is given.
class ISettings : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// The value at the path, with all below it, or null.
    Q_INVOKABLE virtual cJsonValue getProperty(const QString& path) = 0;

    /// An integer.
    Q_INVOKABLE virtual int getPropertyInt(const QString& path) = 0;

    /// An integer, or the default.
    Q_INVOKABLE virtual int getPropertyInt(const QString& path, int defaultValue) = 0;

    /// A boolean.
    Q_INVOKABLE virtual bool getPropertyBool(const QString& path) = 0;

    /// A boolean, or the default.
    Q_INVOKABLE virtual bool getPropertyBool(const QString& path, bool defaultValue) = 0;

    /// A text.
    Q_INVOKABLE virtual QString getPropertyString(const QString& path) = 0;

    /// A text, or the default.
    Q_INVOKABLE virtual QString getPropertyString(const QString& path, const QString& defaultValue) = 0;

    /// The names right below the path, sorted.
    Q_INVOKABLE virtual QStringList getPropertyKeys(const QString& path) = 0;

    /// Stores an integer.
    Q_INVOKABLE virtual void setPropertyInt(const QString& path, int val) = 0;

    /// Stores a boolean.
    Q_INVOKABLE virtual void setPropertyBool(const QString& path, bool val) = 0;

    /// Stores a text.
    Q_INVOKABLE virtual void setPropertyString(const QString& path, const QString& val) = 0;

    /// Stores a value with all below it.
    Q_INVOKABLE virtual void setProperty(const QString& path, const cJsonValue& val) = 0;

    /// Removes the value with all below it.
    Q_INVOKABLE virtual void removeProperty(const QString& path) = 0;

    /// Calls the receiver's slot, given as SLOT() has it, whenever a value at or below the path changes.
    /// The slot takes the changed path as one QString, or nothing.
    Q_INVOKABLE virtual void addListener(const QString& path, QObject* receiver, const char* slotToCall) = 0;

    /// Ends all calls to the receiver.
    Q_INVOKABLE virtual void removeListener(QObject* receiver) = 0;
};

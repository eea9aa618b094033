#pragma once

#include <QStringList>

class QMimeData;
class QObject;
class QWidget;

/// Something that takes drops of profiles, commands and assignments. It decodes a drop and calls the
/// operation for what was in it; an heir has it as its last base, asks it in its drag handlers, and overrides
/// the operations, which do nothing here.
class cProfileDropTarget
{
public:
    virtual void profilesDropped(const QStringList& profileIds);
    virtual void macrosDropped(const QStringList& macroIds);
    /// The context ids of the keys that were dragged.
    virtual void assignmentsDropped(const QStringList& contextIds);

    /// True if the data has at least one of the three formats of DragFormats and does not come from the
    /// target itself. The payload is not looked at. `source` is null for a drag from another process; null
    /// data is refused.
    static bool canAcceptDrop(const QWidget* source, const QObject* target, const QMimeData* data);
    /// Calls one operation: the one for the first format found in the order profiles, commands, assignment;
    /// none if the data is null or has none of them. `source` and `target` play no part.
    void deliverDrop(const QWidget* source, const QObject* target, const QMimeData* data);

protected:
    // Never deleted through this class, and the table of virtual operations holds just the three.
    ~cProfileDropTarget() = default;
};

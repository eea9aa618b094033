#pragma once

#include <Qt>

class QDrag;
class QObject;

namespace DragRun {

/// Runs a drag, whose source is set, to its end. It ends as well when its owner or its source goes, which the
/// host may cause at any time; look afterwards whether the owner is still there. Qt deletes the drag.
Qt::DropAction exec(QDrag* drag, const QObject* owner, Qt::DropAction action);

} // namespace DragRun

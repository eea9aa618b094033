#pragma once

#include <QString>
#include <QVariant>

/// A value as it stands in the lines of a RecordingHost: texts in quotes, numbers and booleans plain, records
/// as JSON, lists in brackets, elements as <tag>, pictures as their size, objects as their class, all else as
/// the name of its type.
QString valueText(const QVariant& value);

#pragma once

#include <QString>
#include <QStringList>

class QMetaMethod;
struct QMetaObject;

/// A method of a meta-object with the types and names of its parameters, as in:
/// addMacro(QString profileID, cJsonValue macro)
QString methodText(const QMetaMethod& method);

/// All that a class itself adds to its meta-object, in order.
QStringList methodTexts(const QMetaObject& meta);

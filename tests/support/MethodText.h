#pragma once

#include <QString>

class QMetaMethod;

/// A method of a meta-object with the types and names of its parameters, as in:
/// addMacro(QString profileID, cJsonValue macro)
QString methodText(const QMetaMethod& method);

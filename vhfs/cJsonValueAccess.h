#pragma once

#include "cJsonContent.h"

/// Reading access to the inside of values, for the other files of this library.
class cJsonValueAccess
{
public:
    using Scalar = cJsonValue::Scalar;

    static const Scalar& scalar(const cJsonValue& value) { return value.m_scalar; }
    static void setInteger(cJsonValue& value, qint64 integer)
    {
        value = 0;
        value.m_scalar = integer;
    }
    static const cJsonContent* content(const cJsonValue& value) { return value.m_content; }
};

#pragma once

#include <cJsonValue.h>

class XmlElement;

/// A command type that reads the element of its data without a DOM in between. Types that can't are asked by
/// their XmlToJson().
class IElementReader
{
public:
    /// What XmlToJson() would say of the element: null if it is not understood whole.
    virtual cJsonValue read(const XmlElement& element) const = 0;

protected:
    ~IElementReader() = default;
};

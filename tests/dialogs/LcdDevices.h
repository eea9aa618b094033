#pragma once

#include <ILCDDevice.h>

/// Lists of devices with a display, as the host answers them.
namespace LcdDevices {

/// Stands for a null pointer in place of a list.
constexpr int NoList = -1;

inline cLCDDeviceListPtr make(int count)
{
    class List : public ILCDDeviceList
    {
    public:
        explicit List(int count)
            : m_count(count)
        { }
        int count() const override { return m_count; }
        ILCDDevicePtr at(int) const override { return ILCDDevicePtr(); }

    private:
        int m_count;
    };
    return count == NoList ? cLCDDeviceListPtr() : cLCDDeviceListPtr(new List(count));
}

} // namespace LcdDevices

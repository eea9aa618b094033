#pragma once

#include <cstddef>
#include <cstring>

/// The place of a virtual function in its class's table, in bytes. Classes that are compiled apart meet in
/// these tables, so the order of virtual functions is part of an interface. A pointer to a virtual member
/// holds the place plus one under the C++ ABI of Linux on x86-64.
template<typename Member>
std::ptrdiff_t virtualOffset(Member member)
{
    std::ptrdiff_t word = 0;
    static_assert(sizeof member >= sizeof word, "a pointer to a member begins with the function's place");
    std::memcpy(&word, &member, sizeof word);
    return word - 1;
}

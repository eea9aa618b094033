#pragma once

#include "VHFSExport.h"

#include <QMetaType>
#include <QString>

#include <variant>

class cJsonValueAccess;
class cJsonContent;

/// A JSON-like value: null, boolean, integer, real, string, array or object.
///
/// Content is shared between copies. A copy costs the same whatever the size of the value; a level of nesting
/// is duplicated when one of the copies changes it, or when operator[] has handed out references to its
/// elements or members through one copy and is asked for one through another. A change of one copy is
/// therefore never seen through another, also when it is made or watched through a reference that operator[]
/// handed out before the copy was made.
///
/// Access to a value of the wrong type is defined and never fails:
/// - Reading a member or an element that is not there, or that a value of this type can't have, gives null().
/// - A non-const operator[] makes a member of a null value or an object. On other types, and for an index
///   outside the array, it returns a reference to a null value that stays null whatever is done to it.
/// - append() to something that is neither null nor an array, and deleteKey() on something that is not an
///   object, change nothing.
/// - The conversions are described at each of them.
///
/// References from operator[] stay valid until the value is assigned, cleared or destroyed or the member is
/// removed; append() and new members leave them alone. Values may be nested to any depth. The copies of a
/// value are for use in one thread, reading included.
class VHFS_EXPORT cJsonValue
{
public:
    enum JsonValueType { nullValue, booleanValue, intValue, realValue, stringValue, arrayValue, objectValue };

    // The conversions are implicit, so that records are written as record["key"] = value.
    // NOLINTBEGIN(google-explicit-constructor,hicpp-explicit-conversions)
    /// An empty value of a type: false, 0, 0.0, "", [] or {}.
    cJsonValue(JsonValueType type = nullValue);
    cJsonValue(const cJsonValue& other);
    cJsonValue(const QString& text);
    /// A string; the text is UTF-8. A null pointer makes an empty string.
    cJsonValue(const char* text);
    cJsonValue(const bool& value);
    cJsonValue(const int& value);
    cJsonValue(const double& value);
    // NOLINTEND(google-explicit-constructor,hicpp-explicit-conversions)
    ~cJsonValue();

    cJsonValue& operator=(const cJsonValue& other);

    /// The member with that key (UTF-8), made if it is missing.
    cJsonValue& operator[](const char* key);
    cJsonValue& operator[](const QString& key);
    /// The element at that index, counted from 0.
    cJsonValue& operator[](int index);
    const cJsonValue& operator[](const char* key) const;
    const cJsonValue& operator[](int index) const;

    /// Adds an element at the end of an array; a null value becomes an array first. Returns this value.
    cJsonValue& append(const cJsonValue& element);
    void deleteKey(const QString& key);
    /// Makes the value null.
    void clear();

    /// True if this is an object that has the key.
    bool contains(const char* key) const;
    /// Number of elements of an array, 0 for all other types.
    unsigned size() const;

    bool isNull() const;
    bool isArray() const;
    bool isObject() const;

    /// The text of a string; a number in the shortest form that reads back as the same, "true" or "false";
    /// empty for null, arrays and objects.
    QString toString() const;
    /// The integer, brought into the range of int; a real without its fraction; 1 or 0 for a boolean; the
    /// number that a string holds in base 10; 0 for everything else.
    int toInt() const;
    /// The number, or the number that a string holds; 1.0 or 0.0 for a boolean; 0.0 for everything else.
    double toDouble() const;
    /// The boolean; true for a number that is not 0 and for the string "true"; false for everything else.
    bool toBool() const;

    /// The null value that reading something missing yields.
    static const cJsonValue& null();

    /// Deep comparison. Values of two types differ, so the integer 1 is not the real 1.0.
    friend VHFS_EXPORT bool operator==(const cJsonValue& a, const cJsonValue& b);

private:
    friend class cJsonContent;
    friend class cJsonValueAccess;

    /// Integers keep 64 bits, so that a number that came as text leaves as the same text.
    using Scalar = std::variant<std::monostate, bool, qint64, double, QString>;

    /// What wrong accesses refer to; takes no value.
    static cJsonValue& nowhere();

    /// The content, which from now on hands out references through this value only.
    const cJsonContent* readableContent() const;
    /// The content after everybody else has been moved out of reach of a write to it.
    cJsonContent* writableContent();
    /// As writableContent(), for a reference that is handed out to write through it.
    cJsonContent* leadContent();
    /// Replaces the data by that of `other`, which must not be a part of this value.
    void take(const cJsonValue& other);
    void attach(cJsonContent* content);
    void detach();
    cJsonValue& member(const QString& key);

    Scalar m_scalar;
    /// The elements or members of an array or object, null for all other types. Mutable as are the
    /// neighbours, because copying and reading change what is shared, but not the value.
    mutable cJsonContent* m_content = nullptr;
    /// The content that this value is an element or member of, null for a value that stands alone.
    cJsonContent* m_container = nullptr;
    /// Neighbours in the list of those who share m_content.
    mutable const cJsonValue* m_nextSharer = nullptr;
    mutable const cJsonValue* m_previousSharer = nullptr;
};

VHFS_EXPORT bool operator==(const cJsonValue& a, const cJsonValue& b);
inline bool operator!=(const cJsonValue& a, const cJsonValue& b)
{
    return !(a == b);
}

Q_DECLARE_METATYPE(cJsonValue)

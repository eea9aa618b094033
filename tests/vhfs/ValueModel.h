#pragma once

#include <cJsonValue.h>

#include <QString>

#include <deque>
#include <map>
#include <memory>
#include <random>
#include <vector>

/// What a cJsonValue has to behave as: the same value without any sharing, copied in full at each copy.
/// Integers stand for all scalars.
class ValueModel
{
public:
    ValueModel() = default;
    ValueModel(const ValueModel& other) { *this = other; }
    ~ValueModel() = default;
    ValueModel& operator=(const ValueModel& other);

    void set(int scalar);
    void clear();
    /// The member, made if it is missing; null if this can't have one.
    ValueModel* member(const QString& key);
    /// The element, null if it is missing.
    ValueModel* element(int index);
    void append(const ValueModel& element);
    void deleteKey(const QString& key);

    cJsonValue::JsonValueType type() const { return m_type; }
    const std::map<QString, ValueModel>& members() const { return m_members; }
    const std::deque<ValueModel>& elements() const { return m_elements; }
    /// Number of all values in this one, itself included.
    int count() const;
    /// Expires with this value.
    std::weak_ptr<int> life() const { return m_life; }

    /// A value that shares nothing with any other.
    cJsonValue toValue() const;
    /// True if the value reads the same, member by member and element by element.
    bool isReadFrom(const cJsonValue& value) const;

private:
    cJsonValue::JsonValueType m_type = cJsonValue::nullValue;
    int m_scalar = 0;
    std::map<QString, ValueModel> m_members;
    std::deque<ValueModel> m_elements;
    std::shared_ptr<int> m_life = std::make_shared<int>(0);
};

/// Some values, copies of them and references into them, on which random operations are done, each on the
/// values and on their models.
class RandomValues
{
public:
    explicit RandomValues(unsigned seed);

    /// Does an operation and returns its name.
    QString doSomething();
    /// How the values differ from their models, empty if they don't.
    QString difference();
    /// The most operations that a reference has lived through.
    int longestReferenceLife() const { return m_longestLife; }

private:
    struct Root
    {
        cJsonValue value;
        ValueModel model;
    };
    /// A value or a reference that an operation works on.
    struct Target
    {
        cJsonValue* value;
        ValueModel* model;
    };
    struct Reference
    {
        const cJsonValue* value;
        ValueModel* model;
        bool isWritable;
        std::weak_ptr<int> life;
        int age = 0;
    };

    int random(int end);
    QString randomKey();
    Target randomTarget();
    void hold(const cJsonValue* value, ValueModel* model, bool isWritable);
    void dropDeadReferences();

    std::mt19937 m_generator;
    std::vector<std::unique_ptr<Root>> m_roots;
    std::vector<Reference> m_references;
    int m_longestLife = 0;
};

#pragma once

#include <cJsonValue.h>
#include <cPointerProperties.h>
#include <MKey.h>

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QStringList>

#include <map>
#include <tuple>
#include <vector>

/// Names one control in one mode of one device category.
struct ControlKey
{
    QString category;
    MKey::MKey_t mode = MKey::M1;
    QString contextId;

    friend bool operator==(const ControlKey& a, const ControlKey& b)
    {
        return std::tie(a.category, a.mode, a.contextId) == std::tie(b.category, b.mode, b.contextId);
    }
    friend bool operator<(const ControlKey& a, const ControlKey& b)
    {
        return std::tie(a.category, a.mode, a.contextId) < std::tie(b.category, b.mode, b.contextId);
    }
};

/// What a profile holds, as a value.
///
/// Records are kept as callers gave them; keys that this version does not know stay in them. What a document
/// held that this version does not know stands in `extensions` and, inside records of commands, repeats and
/// signatures, under the keys "extension_elements" (array of texts, one XML element each),
/// "extension_attributes" (object of texts) and "extension_parts" (object of such records, by element).
struct Profile
{
    /// The profile record without `macros` and `assignments`: `uid`, `name`, `description`, `target`,
    /// `script`, `uselcd`, `lock`, `deviceid`, `migration`, `signatures` and whatever else it came with.
    cJsonValue properties;
    /// Command records in the order in which they were added.
    std::vector<cJsonValue> macros;
    /// The uid of the command on each control that has one.
    std::map<ControlKey, QString> assignments;
    /// Categories that the profile was set up for, also those without any assignment.
    QSet<QString> categories;
    /// What controls held before their first change since the category's backup began: a command's uid, or an
    /// empty text for a control that was empty.
    std::map<ControlKey, QString> backup;
    /// PNG of the icon that the user chose, empty without one.
    QByteArray icon;
    /// By device model.
    std::map<QString, cPointerProperties> pointers;

    /// What a document says beyond what is known.
    struct Extensions
    {
        /// Of an assignment: its `macrouid`, without which it would speak of another one,
        /// "extension_attributes" and "extension_elements".
        std::map<ControlKey, cJsonValue> assignments;
        /// The same of what controls held.
        std::map<ControlKey, cJsonValue> backup;
        /// Of the root and of the elements below the profile that hold nothing but known parts, as under
        /// "extension_parts" of a record: "assignments" and "backup" by their category, "pointer" by its
        /// model and so on.
        cJsonValue parts;
        /// Elements below the profile, as XML text, in their order.
        QStringList elements;
        /// Attributes of the profile's element.
        std::map<QString, QString> attributes;

        friend bool operator==(const Extensions& a, const Extensions& b)
        {
            return std::tie(a.assignments, a.backup, a.parts, a.elements, a.attributes)
                == std::tie(b.assignments, b.backup, b.parts, b.elements, b.attributes);
        }
    };
    Extensions extensions;

    friend bool operator==(const Profile& a, const Profile& b)
    {
        return a.properties == b.properties && a.macros == b.macros && a.assignments == b.assignments
            && a.categories == b.categories && a.backup == b.backup && a.icon == b.icon
            && a.pointers == b.pointers && a.extensions == b.extensions;
    }

    QString uid() const { return properties["uid"].toString(); }
    QString name() const { return properties["name"].toString(); }
};

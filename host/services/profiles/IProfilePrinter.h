#pragma once

#include <QString>
#include <QStringList>

struct Profile;

/// Who prints profiles.
class IProfilePrinter
{
public:
    /// Shows what would be printed, and lets the user print it. `keys` are the context ids in their order;
    /// none for all that the category has.
    virtual void print(const Profile& profile, const QString& deviceCategory, const QStringList& keys) = 0;

protected:
    ~IProfilePrinter() = default;
};

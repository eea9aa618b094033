#pragma once

#include <Profile.h>

#include <QTreeWidget>

class cProfileMgrService;

/// Profiles in rows that can be checked: the name, how much they hold, and how they relate to the profiles
/// that there are. What can't be used has a row that can't be checked.
class ProfileTable : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ProfileTable(cProfileMgrService& profiles, QWidget* parent = nullptr);

    /// Adds a column at the end, whose texts rows are given.
    void addColumn(const QString& title);

    /// `key` is what checkedKeys() gives back.
    void addProfile(
        const Profile& profile, const QVariant& key, bool isChecked, const QString& lastText = QString());
    void addProblem(const QString& name, const QString& problem);

    /// In the order of the rows.
    QVariantList checkedKeys() const;
    /// Of all rows that can be checked.
    QVariantList keys() const;

Q_SIGNALS:
    void checkedChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    enum Column { Name, Commands, Keys, Status, Last };

    QString statusOf(const Profile& profile) const;
    QTreeWidgetItem* addRow(const QStringList& texts, const QString& lastText);

    cProfileMgrService& m_profiles;
};

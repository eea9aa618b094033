#pragma once

#include "ProfileHost.h"

#include <cProfileList.h>

#include <QString>
#include <QStringList>
#include <QWidget>

class cProfileItem;

/// The list on a host with these profiles, filled as the bar fills it and as large as in the view. Tiles are
/// named by the names that their profiles had at first.
class Strip
{
    Q_DISABLE_COPY(Strip)

public:
    /// `last` is the name of the profile of the last run.
    explicit Strip(const QStringList& names, const QString& last = QString());

    cProfileItem* tile(const QString& name) const;
    QStringList names() const;
    QStringList shownNames() const;
    /// The tiles that are marked as current.
    QStringList current() const;
    /// The tiles that are selected, in alphabetical order.
    QStringList selected() const;
    void click(const QString& name, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Clicks the first and adds the others to the selection.
    void select(const QStringList& names);
    /// Where a well is on the screen of the list: its middle.
    static QPoint wellCenter(int well);
    QString tip() const { return list.toolTip(); }

    ProfileHost host;
    cProfileList list;
};

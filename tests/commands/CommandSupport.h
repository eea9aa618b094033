#pragma once

#include <cJsonValue.h>
#include <cMacroList.h>
#include <PlainMacroType.h>
#include <RecordingHost.h>
#include <SignalLog.h>

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

class cMacroItem;

/// What the tests of the command panel share.
namespace CommandSupport {

// What the view shows.
inline const QString Profile = QStringLiteral("{P}");
inline const QString Category = QStringLiteral("Controller");
inline const QStringList Controls {"G1", "G2"};

// The types that the host knows.
inline const QString Keys = QStringLiteral("urn:keys");
inline const QString Text = QStringLiteral("urn:text");
inline const QString Private = QStringLiteral("urn:private");

/// Has the one view of the process show that profile, category and these controls.
void show(
    const QString& profileID, const QString& category = Category, const QStringList& controls = Controls);

/// A type of which only the id and the icon are asked.
class FakeType final : public PlainMacroType
{
public:
    FakeType(const QString& uid, const QString& iconPath, bool isPrivate = false);
};

cJsonValue macro(const QString& uid, const QString& name, const QString& type = Keys, bool hidden = false);
/// Commands "{1}", "{2}" and so on with those names.
cJsonValue macros(const QStringList& names);

/// A host with three types, a main window and a list of commands in it.
class Panel
{
    Q_DISABLE_COPY(Panel)

public:
    /// With `isShown` false the window is left to the test to show.
    explicit Panel(bool isShown = true);
    ~Panel();

    /// What reached the host since the last take, calls in full and the list's signals, in order.
    QStringList takeLog();
    /// Has the host answer these commands and announce the profile; returns while the fill runs.
    void startFill(const cJsonValue& records);
    /// startFill(), and waits until all rows are there. The log does not show it.
    void fill(const cJsonValue& records);
    void fillNames(const QStringList& names) { fill(macros(names)); }

    void search(const QString& text);
    cMacroItem* row(int row) const;
    /// Null if there is none.
    cMacroItem* rowOf(const QString& uid) const;
    /// Names of the rows that are not hidden, from the top.
    QStringList shownNames() const;
    void select(const QList<int>& rows);
    bool showsNoResults() const;

    RecordingHost host;
    QWidget window;
    IMacroTypePtrList types;
    std::unique_ptr<cMacroList> list;
    std::unique_ptr<SignalLog> signalLog;
};

// The lines of the log for the calls that the panel makes.
QString macrosCall(const QString& profileID = Profile);
QString typeCall(const QString& type);
QString allTypesCall();
QString assignedCall(const QString& uid);
/// The three calls that one row costs.
QStringList rowCalls(const QString& uid, const QString& type = Keys);

} // namespace CommandSupport

#pragma once

#include "EventLog.h"
#include "Fakes.h"

#include <cMacroTypeMgrService.h>
#include <cProfileMgr.h>
#include <cProfileMgrService.h>
#include <cServiceMgr.h>
#include <FixedIds.h>
#include <TestCase.h>

#include <QTemporaryDir>

#include <memory>

/// The names that the tests of the profile service share.
namespace TestIds {
inline const QString P = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");
inline const QString Q = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000002}");
inline const QString Default = FixedIds::DefaultProfile;
inline const QString M1 = QStringLiteral("{BBBBBBBB-0000-0000-0000-000000000001}");
inline const QString M2 = QStringLiteral("{BBBBBBBB-0000-0000-0000-000000000002}");
inline const QString Unknown = QStringLiteral("{CCCCCCCC-0000-0000-0000-000000000009}");
inline const QString Mouse = QStringLiteral("Mouse");
/// A type for each kind of control of FakeDevices, and one that is not registered.
inline const QString ButtonType = QStringLiteral("urn:button");
inline const QString KeyType = QStringLiteral("urn:key");
inline const QString NoType = QStringLiteral("urn:none");
} // namespace TestIds

/// Base of the tests of the profile service: a service manager of the test's own, and the services over a
/// folder of the test's own, which restart() takes down and brings up again.
class ProfilesTestCase : public TestCase
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();

protected:
    void start();
    void stop();
    void restart();
    /// A service over the same folder as the one that runs, not registered.
    std::unique_ptr<cProfileMgrService> makeService();

    QString folder() const { return m_directory->filePath(QStringLiteral("profiles")); }
    QString defaultDocument() const { return m_directory->filePath(QStringLiteral("Default.xml")); }
    QString path(const QString& name) const { return m_directory->filePath(name); }
    void writeFile(const QString& path, const QByteArray& content) const;
    QByteArray readFile(const QString& path) const;
    /// Names of the stored documents, sorted.
    QStringList documents() const;
    /// What the folder of documents holds, as one text.
    QByteArray snapshot() const;

    /// All profiles in their order, byte for byte.
    QByteArray content();
    /// What comes after it is another step.
    static void endTurn() { QCoreApplication::processEvents(); }
    const ProfileHistory& history() { return service().history(); }

    static cJsonValue profile(const QString& uid, const QString& name);
    static cJsonValue macro(
        const QString& uid, const QString& name, const QString& macroNamespace = TestIds::ButtonType);
    /// What the user was told since the last take.
    QStringList takeProblems();

    /// Through which the tests call; it finds the service by name.
    cProfileMgr& profiles() { return *m_client; }
    cProfileMgrService& service() { return *m_service; }
    EventLog& events() { return *m_events; }
    FakeMainUI& mainUI() { return m_mainUI; }
    FakeSettings& settings() { return *m_settings; }

private Q_SLOTS:
    void onProblem(const QString& text) { m_problems.append(text); }

private:
    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<cServiceMgr> m_manager;
    std::unique_ptr<FakeSettings> m_settings;
    FakeDevices m_devices;
    FakeMainUI m_mainUI;
    std::unique_ptr<cMacroTypeMgrService> m_types;
    std::unique_ptr<cProfileMgrService> m_service;
    std::unique_ptr<cProfileMgr> m_client;
    std::unique_ptr<EventLog> m_events;
    QStringList m_problems;
};

#pragma once

#include <cDevMgrService.h>
#include <cMacroTypeMgrService.h>
#include <cProfileMgr.h>
#include <cProfileMgrService.h>
#include <cProfilesToGo.h>
#include <cProfilesToGoService.h>
#include <cServiceMgr.h>
#include <Fakes.h>
#include <TestCase.h>

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// Writes down "Busy <device> <id>" and "Idle <id>" as they come on "ProfilesToGo_Events", and what the
/// service answered at that moment.
class TransferLog : public QObject
{
    Q_OBJECT

public:
    TransferLog();
    ~TransferLog() override;

    QStringList take();

    Q_INVOKABLE void onProfilesToGoDeviceBusy(const QString& deviceName, const QString& deviceId);
    Q_INVOKABLE void onProfilesToGoDeviceIdle(const QString& deviceId);

private:
    QStringList m_lines;
};

/// Base of the tests of on-board memories: the profile service and a device "Mouse" with a memory of 20 KB,
/// one "Plain" without, in a folder of the test's own, which restart() takes down and brings up again. Calls
/// go through the clients, by name.
class OnBoardTestCase : public TestCase
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();

protected:
    static inline const QString Mouse = QStringLiteral("Test.Mouse#demonstration");
    static inline const QString Local = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");
    static constexpr int Capacity = 20480;

    void start();
    void stop();
    void restart();
    /// Waits until no device is busy.
    void waitUntilIdle();
    /// Sets how many bytes the memory takes in a second; as fast as it can without. Before start().
    void setSpeed(int bytesPerSecond);

    /// Copies the profile to the mouse, without writing it, and returns its new id.
    QString copyToMouse(const QString& profileId);
    /// Gives the profile a description of that size.
    void grow(const QString& profileId, int size);

    QString memoryPath(const QString& name = {}) const;
    QString awayPath() const { return m_folder->filePath(QStringLiteral("onboard/Mouse.disconnected")); }
    /// Names of the documents in the mouse.
    QStringList documents() const;
    QByteArray document(const QString& name) const;
    QStringList takeProblems();

    cProfileMgr& profiles() { return *m_profilesClient; }
    cProfilesToGo& memories() { return *m_memoriesClient; }
    cProfileMgrService& profileService() { return *m_profileService; }
    cProfilesToGoService& service() { return *m_service; }
    QStringList takeEvents() { return m_log->take(); }

private Q_SLOTS:
    void onProblem(const QString& text) { m_problems.append(text); }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<cServiceMgr> m_manager;
    FakeSettings m_settings;
    FakeMainUI m_mainUI;
    std::unique_ptr<cMacroTypeMgrService> m_types;
    std::unique_ptr<cDevMgrService> m_devices;
    std::unique_ptr<cProfileMgrService> m_profileService;
    std::unique_ptr<cProfilesToGoService> m_service;
    std::unique_ptr<cProfileMgr> m_profilesClient;
    std::unique_ptr<cProfilesToGo> m_memoriesClient;
    std::unique_ptr<TransferLog> m_log;
    QStringList m_problems;
};

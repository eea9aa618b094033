#pragma once

#include <IHostWindow.h>

#include <QList>
#include <QWidget>

#include <functional>

class cDevMgrService;
class cFeatureViewMgrService;
class cHelpMgrService;
class cMainAppService;
class DeviceBar;
class DeviceCanvas;
class FeatureViewController;
class MessageStrip;
class QAction;
class QActionGroup;
class QKeySequence;
class QLabel;
class QMenu;

/// The services that the main window talks to. All of them outlive it.
class MainWindowServices
{
public:
    cDevMgrService& devices;
    cFeatureViewMgrService& featureViews;
    FeatureViewController& controller;
    cHelpMgrService& help;
    cMainAppService& application;
};

/// The main window: a header, the canvas with the device, the bar of devices and views, and a strip for
/// messages. It shows one device; a feature view of that device is opened and closed by its button or its
/// menu entry. Choosing another device while a view is open opens the view for that device.
class MainWindow : public QWidget, public IHostWindow
{
    Q_OBJECT

public:
    explicit MainWindow(const MainWindowServices& services);
    ~MainWindow() override;

    /// Shows the devices that the device manager has now, the first one in front.
    void reloadDevices();

    /// The device's name and what is shown of it, as the header has them.
    QString caption() const;
    DeviceCanvas& canvas() { return *m_canvas; }
    DeviceBar& deviceBar() { return *m_deviceBar; }
    MessageStrip& messageStrip() { return *m_strip; }
    QMenu& menu() { return *m_menu; }
    /// The menu for undo and redo, which others fill.
    QMenu& editMenu() { return *m_editMenu; }
    /// Adds an entry to the section of the menu for the user's data.
    void addDataEntry(QAction* action);

    // IHostWindow
    QWidget* widget() override { return this; }
    void raiseDeviceBar() override;
    bool isDeviceBarUnderMouse() const override;
    QString activeDeviceModel() const override { return m_deviceModel; }
    QString activeDeviceId() const override;
    bool selectDevice(const QString& model) override;
    void showMessage(const QString& text) override;

    /// Adds an entry below those of the views, in the order of the calls.
    void addTool(
        const QString& text, const QKeySequence& shortcut, const QObject* receiver, const char* slot);
    /// Asked when the user closes the window, which stays open if the answer is false.
    void setCloseGuard(std::function<bool()> guard) { m_closeGuard = std::move(guard); }

    /// Opens the first view that suits the device; false if there is none or it can't be opened.
    bool openFirstView();

public Q_SLOTS:
    void onMessage(const QString& text);
    void closeView();

Q_SIGNALS:
    void deviceChanged(const QString& model);
    /// The user closes the window, and the application ends.
    void closing();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private Q_SLOTS:
    void onDeviceChosen(const QString& model);
    void onDeviceAction(QAction* action);
    void onViewToggled(const QString& viewId);
    void onViewAction();
    void onViewsChanged();
    void onViewStateChanged();
    void onHelp();
    void onAbout();

private:
    void createContent();
    QWidget* createHeader();
    void createMenu();
    void rebuildDeviceActions();
    void rebuildViewActions();
    void markView();
    void placeStrip();

    MainWindowServices m_services;
    std::function<bool()> m_closeGuard;
    QString m_deviceModel;
    QLabel* m_deviceName = nullptr;
    QLabel* m_status = nullptr;
    DeviceCanvas* m_canvas = nullptr;
    QWidget* m_canvasArea = nullptr;
    DeviceBar* m_deviceBar = nullptr;
    MessageStrip* m_strip = nullptr;
    QMenu* m_menu = nullptr;
    QMenu* m_editMenu = nullptr;
    QMenu* m_deviceMenu = nullptr;
    QActionGroup* m_deviceActions = nullptr;
    /// Stands in front of the entries of the views.
    QAction* m_viewSection = nullptr;
    QAction* m_viewSectionEnd = nullptr;
    QAction* m_toolSectionEnd = nullptr;
    QAction* m_dataSectionEnd = nullptr;
    QList<QAction*> m_viewActions;
};

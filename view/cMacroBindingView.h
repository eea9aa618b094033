#pragma once

#include <cJsonValue.h>
#include <IFeatureView.h>
#include <MKey.h>

#include <QList>
#include <QMap>
#include <QPoint>
#include <QPointer>
#include <QPointF>
#include <QString>
#include <QStringList>

class cAnimatedPixmapWidget;
class cGraphicsItem;
class cGraphicsItemGroup;
class cGraphicsText;
class cMacroList;
class cPanel;
class cProfileBar;
class cProfiler;
class cProfileTrashcanGraphicsItem;
class cPulseGlowImage;
class cScalablePixmap;
class cTooltip;
class Gkey;
class MagnetTextItem;
class QFrame;
class QGraphicsRectItem;
class QGraphicsScene;
class QGraphicsView;
class QPropertyAnimation;

/// The view in which users put commands on the keys of their device.
///
/// The plug-in object owns the one view of the process; the host drives it through IFeatureView. It lays
/// hotspots, labels, the command list and the profile bar over the host's picture of the device, asks the
/// host's services for every change, and changes its picture only when the host's event comes back.
///
/// Its life: created; transforming after init(), while the host moves the device picture; shown after
/// onDeviceTransformEnd(); leaving after deinit(), while the panes slide out. The implementation is cut by
/// subject into the files cMacroBindingView_<subject>.cpp; this class's own file holds the lifecycle.
class cMacroBindingView : public IFeatureView
{
    Q_OBJECT

public:
    cMacroBindingView();
    ~cMacroBindingView() override;

    /// The view of the process, made at the first call unless somebody has made it by then. Not to be called
    /// once the plug-in has deleted the view: that would make another one.
    static cMacroBindingView* instance();

    /// False, with nothing changed, if the canvas is null or has no scene.
    bool init(cJsonValue viewInfo, QGraphicsView* canvas) override;
    bool deinit(cJsonValue viewInfo, QGraphicsView* canvas) override;
    bool activate(cJsonValue viewInfo) override;
    bool deactivate(cJsonValue viewInfo) override;
    cJsonValue viewInfo() override;

    QString getDeviceCategory() const { return m_deviceCategory; }
    MKey::MKey_t getCurrentMState() const { return m_currentMState; }
    QString getProfileId() const { return m_profileId; }
    QStringList getControlIds() const { return m_controlIds; }

    /// The device metadata record, made from the manifest that IDevMgr has for the model. A group of keys is
    /// there when its element is; an attribute that is missing or malformed reads as an empty text, 0 or
    /// false. An unknown model gives a record whose `device_model` and `profiler.category` are empty. Lengths
    /// are in pixels of the canvas; they are integers but for a polygon's bounds (`x`, `y`, `polywidth`,
    /// `polyheight`), which are reals like `scale`.
    cJsonValue readDeviceMetadata(const QString& deviceModel) const;

public Q_SLOTS:
    // The first six have no caller here: scripts reach them through the object "MacroBindingView".
    void newCommand();
    void newProfile();
    void scanForGames();
    void selectProfile(const QString& profileID);
    void testProfile();
    void deleteSelectedProfiles();

protected Q_SLOTS:
    void onFade(qreal value);
    void loadMacroEditor(const cJsonValue& macro);
    void onSortIconClicked(const QPoint& point);
    void sortMacroNameAscending();
    void sortMacroNameDescending();
    void sortMacroType();
    void setAssignment(const QString& macroID, const QString& contextID);
    void SwitchMState(const QString& MStateID);
    void highlightAssignment(const cJsonValue& macro);
    void unHighlightAssignment(const cJsonValue& macro);
    void onEditAssignment(const QString& contextID);
    void onUseGenericAssignment(const QString& contextID);
    void onUnassignAssignment(const QString& contextID);
    void onUseGenericForAllGkeys(const QString& profileID);
    void onUnassignAllGkeys(const QString& profileID);
    void onPrintProfile(const QString& profileID);
    void onShowTooltip(const QPointF& pt, const QString& tip);
    void onAutoScanForGames();
    void onStartGkeyPulsate(const cJsonValue& macro);
    void onAssignmentStartPulsate(const QString& macroID);
    void onStopGkeyPulsate();
    void onStartMkeyPulsate();
    void onStopMkeyPulsate();
    void onPaneAndMaskEnterAnimation();
    void onPaneAndMaskExitAnimation();
    void onPaneAndMaskAnimationExitFinished();
    void onForceProfilesToGoSync();
    void onUseDefaultForAllGkeys(const QString& profileID);
    void onUseDefaultAssignment(const QString& contextID);
    void deleteProfiles(const QStringList& profiles);
    void deleteMacros(const QStringList& macros);
    void deleteAssignments(const QStringList& contextIds);
    void onmacroAdded(const QString& profileID, const cJsonValue& macro);
    void onmacroDeleted(const QString& profileID, const cJsonValue& macro);
    void onmacroChanged(const QString& profileID, const cJsonValue& macro);
    void onMacroAssigned(const QString& profileID, const QString& deviceModel, const QString& macroID,
        MKey::MKey_t mode, const QString& contextID);
    void onAssignmentRemoved(const QString& profileID, const QString& deviceModel, MKey::MKey_t mode,
        const QString& contextID, const QString& macroID);
    void onMacroEditorClosed(const QString& macroID);
    void onDeviceTransformEnd();
    void onProfileSelectionChanging(const QString& profileID);
    void onMStateChanged(MKey::MKey_t mkeyState, const QString& category);
    void onProfilePropertyChanged(const QString& profileId);
    void onRegisterHelpProvider(int index);
    void onForegroundAppChange(const QString& appPath, quint32 processId);
    void onMainWindowClosing();
    void onPopulatingMacros();
    void onPopulatedMacros();
    void onProfilesToGoDeviceBusy(const QString& deviceName, const QString& deviceId);
    void onProfilesToGoDeviceIdle(const QString& deviceId);

private:
    Q_DISABLE_COPY(cMacroBindingView)

    enum class PaneMovement { Enter, Exit };

    // The steps of onDeviceTransformEnd(), in their order.
    void subscribeToDeviceEvents();
    void readDeviceFacts(const cJsonValue& metadata, cProfiler& profiler);
    void createHotspots(const cJsonValue& metadata);
    void createCommandFrame();
    void createSyncButton();
    void createNewCommandButton();
    void createMacroList();
    void createProfileBar();
    void createProfileFrames();
    void createHintText();
    void placeProfileBar();
    void createStickOverlay(const cJsonValue& metadata);
    void createModeButtons(const cJsonValue& metadata, cProfiler& profiler);
    void createPulseGlows(const cJsonValue& metadata);
    /// The first start's step: has onAutoScanForGames() called in a moment, unless that has been done before.
    void offerGameScan();
    void createTrashcan();
    void showFrames();

    /// A key as one element of the record's `hotspots` describes it, connected with the view.
    void createHotspot(const cJsonValue& control);
    /// Deletes what onDeviceTransformEnd() made and ends its subscriptions. Harmless when repeated.
    void removeScene();
    /// Null if the scene went before the view.
    QGraphicsRectItem* rootItem() const { return m_scene.isNull() ? nullptr : m_rootItem; }

    /// Rebuilds all labels for the shown profile, category and mode.
    void refreshAssignments();
    /// Puts the generic commands that the manifest requires onto the keys of a profile that has never been
    /// seen on this kind of device.
    void assignRequiredGenericMacros();
    void clearLabels();
    /// Makes the label of a key and tells the key its command. Without such a key there is no label.
    void addLabel(const QString& macroID, const QString& text, const QString& contextID);
    void removeLabel(const QString& contextID);
    void setLabelsSelected(const cJsonValue& macro, bool selected);
    /// True if the event is about the profile, the category and the mode that the picture shows.
    bool isShown(const QString& profileID, const QString& category, MKey::MKey_t mode) const;

    void openMacroEditor(const cJsonValue& macro);
    /// Makes the command's row current and the only selected one; a command without a row clears the
    /// selection.
    void selectMacroRow(const QString& macroID);
    void useGenericMacro(const QString& profileID, const Gkey& key);

    /// Sorts the command list by a cListWidgetItem::SortMode, and its commands to come.
    void sortMacros(int sortMode, Qt::SortOrder order);

    void setSyncButtonEnabled(bool on);
    /// Offers to write the profile to the device to which it is bound.
    void refreshSyncButton();
    /// The mode button that pulsates while the pointer is on no panel; null if there is none.
    cGraphicsItem* selectedModeButton() const;

    /// Makes what is missing, unless the main window is closing.
    void ensurePanesAndMask();
    void createMask(QGraphicsScene& scene);
    void movePanesAndMask(PaneMovement movement);
    void removePanesAndMask();

    // The pointers are null until the scene is built. "Host's" are not ours; all others are deleted in
    // deinit() unless a line says otherwise. The guarded ones become null when the host deletes the canvas or
    // its scene, which takes widgets and items along.

    /// The host's.
    QPointer<QGraphicsView> m_canvas;
    /// Parent of all items that are bound to the device; as large as the canvas's scene.
    QGraphicsRectItem* m_rootItem = nullptr;
    QPointer<QFrame> m_commandFrame;
    cGraphicsText* m_hintText = nullptr;
    QList<QPointer<cPulseGlowImage>> m_pulseGlows;
    QPointer<cMacroList> m_macroList;
    /// The key of every assignment call that the interfaces call "devicemodal".
    QString m_deviceCategory;
    /// Context ids of all hotspots in the order of the manifest.
    QStringList m_controlIds;
    /// The mode that the picture shows.
    MKey::MKey_t m_currentMState = MKey::MKey_t(0);
    /// By context id.
    QMap<QString, QPointer<Gkey>> m_hotspots;
    /// By context id, for the keys that hold a command.
    QMap<QString, QPointer<MagnetTextItem>> m_labels;
    /// The profile whose assignments are shown.
    QString m_profileId;
    /// The mode buttons; null on a device without modes.
    QPointer<cGraphicsItemGroup> m_mStateGroup;
    /// A child of m_rootItem.
    QPointer<cTooltip> m_tooltip;
    bool m_sceneBuilt = false;
    QString m_deviceModel;
    cJsonValue m_metadata;
    QPointer<QFrame> m_profileFrame;
    QPointer<QFrame> m_profileSearchFrame;
    bool m_inForeground = true;
    // The panes, the mask and their animations outlive deinit() by the length of the exit.
    QPointer<QPropertyAnimation> m_commandPaneAnimation;
    QPointer<QPropertyAnimation> m_profilePaneAnimation;
    QPointer<QPropertyAnimation> m_maskAnimation;
    QPointer<cScalablePixmap> m_maskItem;
    QPointer<cPanel> m_profilePanel;
    QPointer<cPanel> m_commandPanel;
    bool m_mainWindowClosing = false;
    bool m_leaving = false;
    /// A child of m_profilePanel.
    QPointer<cProfileBar> m_profileBar;
    /// A child of m_rootItem.
    QPointer<cProfileTrashcanGraphicsItem> m_trashcan;
    /// The device to which the current profile is bound, or empty.
    QString m_profilesToGoDeviceId;
    /// A child of m_commandFrame.
    QPointer<cAnimatedPixmapWidget> m_syncButton;
    /// The host's: the scene that holds the items since init(). A host that deletes it early deletes the
    /// items with it.
    QPointer<QGraphicsScene> m_scene;
};

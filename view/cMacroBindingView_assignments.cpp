#include "cMacroBindingView.h"

#include "ViewConstants.h"

#include <cMacroEditor.h>
#include <cMacroList.h>
#include <cMacroTypeMgr.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <Gkey.h>
#include <MagnetTextItem.h>

#include <QAbstractItemView>
#include <QItemSelectionModel>
#include <QListWidgetItem>

using namespace ViewConstants;

namespace {

/// The name under which the user knows a command; empty for a command that is not among the records.
QString displayName(const cJsonValue& macros, const QString& macroID, Qt::CaseSensitivity sensitivity)
{
    for (int i = 0; i < int(macros.size()); ++i) {
        if (macros[i]["uid"].toString().compare(macroID, sensitivity) == 0)
            return macros[i]["display_name"].toString();
    }
    return QString();
}

} // namespace

// What the user does to one key.

void cMacroBindingView::setAssignment(const QString& macroID, const QString& contextID)
{
    cProfileMgr().setAssignment(m_profileId, m_deviceCategory, macroID, m_currentMState, contextID);
}

void cMacroBindingView::onUseDefaultAssignment(const QString& contextID)
{
    if (const Gkey* const key = m_hotspots.value(contextID))
        cProfileMgr().setDefaultAssignment(m_profileId, m_deviceCategory, m_currentMState, key->contextID());
}

void cMacroBindingView::onUseGenericAssignment(const QString& contextID)
{
    if (const Gkey* const key = m_hotspots.value(contextID))
        useGenericMacro(m_profileId, *key);
}

void cMacroBindingView::useGenericMacro(const QString& profileID, const Gkey& key)
{
    cProfileMgr().setGenericAssignment(profileID, m_deviceCategory, key.genericType(), key.genericName(),
        key.isGenericHidden(), m_currentMState, key.contextID());
}

void cMacroBindingView::onUnassignAssignment(const QString& contextID)
{
    // The sender may be the key itself, which the host can take down while it answers.
    const QString id = contextID; // NOLINT(performance-unnecessary-copy-initialization)
    cProfileMgr().removeAssignment(m_profileId, m_deviceCategory, m_currentMState, id);
    const Gkey* const key = m_hotspots.value(id);
    if (key && key->cannotBeUnassignedFlag())
        onUseGenericAssignment(id);
}

void cMacroBindingView::onEditAssignment(const QString& contextID)
{
    cProfileMgr profiles;
    const QString macroID = profiles.getAssignment(m_profileId, m_deviceCategory, m_currentMState, contextID);
    const cJsonValue macro = profiles.getMacroByID(m_profileId, macroID);
    if (!macro["hidden"].toBool()) {
        loadMacroEditor(profiles.getMacroByID(m_profileId, macroID));
        return;
    }
    // A hidden command has no editor: a new one takes its place.
    if (Gkey* const key = m_hotspots.value(contextID))
        key->onAddNewMacro();
}

// What the user does to all keys.

void cMacroBindingView::onUseDefaultForAllGkeys(const QString& profileID)
{
    // The question runs the event loop, in which the sender of the argument may go.
    const QString profile = profileID; // NOLINT(performance-unnecessary-copy-initialization)
    if (!cMainUI().yesno(QObject::tr("Use Default"),
            QObject::tr(
                "Are you sure you want to replace all your G-key assignments with default settings?")))
        return;
    const auto keys = m_hotspots;
    for (const Gkey* key : keys) {
        if (key)
            cProfileMgr().setDefaultAssignment(profile, m_deviceCategory, m_currentMState, key->contextID());
    }
    cProfileMgr().cleanupBackup(profile, m_deviceCategory);
}

void cMacroBindingView::onUseGenericForAllGkeys(const QString& profileID)
{
    const QString profile = profileID; // NOLINT(performance-unnecessary-copy-initialization)
    if (!cMainUI().yesno(QObject::tr("Use Generic"),
            QObject::tr(
                "Are you sure you want to replace all your G-key assignments with generic settings?")))
        return;
    const auto keys = m_hotspots;
    for (const Gkey* key : keys) {
        if (key)
            useGenericMacro(profile, *key);
    }
}

void cMacroBindingView::onUnassignAllGkeys(const QString&)
{
    // Of the shown profile, whichever is named, and without a question.
    const auto keys = m_hotspots;
    for (const Gkey* key : keys) {
        if (key)
            onUnassignAssignment(key->contextID());
    }
}

void cMacroBindingView::onPrintProfile(const QString& profileID)
{
    cProfileMgr().printProfile(profileID, m_deviceCategory, m_hotspots.keys());
}

// The command editor.

void cMacroBindingView::newCommand()
{
    openMacroEditor(cJsonValue());
}

void cMacroBindingView::loadMacroEditor(const cJsonValue& macro)
{
    const cMacroTypePtr type = cMacroTypeMgr().getMacroTypeByID(macro["namespace"].toString());
    if (type && !type->isPrivate())
        openMacroEditor(macro);
}

void cMacroBindingView::openMacroEditor(const cJsonValue& macro)
{
    cMacroEditor editor(macro, cMainUI().window(), true);
    connect(&editor, SIGNAL(macroEditorClosed(QString)), this, SLOT(onMacroEditorClosed(QString)));
    editor.exec();
}

void cMacroBindingView::onMacroEditorClosed(const QString& macroID)
{
    if (!m_macroList)
        return;
    QListWidgetItem* const item = m_macroList->item(m_macroList->rowByMacroId(macroID));
    if (!item)
        return;
    m_macroList->setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
    m_macroList->scrollToItem(item, QAbstractItemView::EnsureVisible);
}

void cMacroBindingView::selectMacroRow(const QString& macroID)
{
    if (!m_macroList)
        return;
    QListWidgetItem* const item = m_macroList->item(m_macroList->rowByMacroId(macroID));
    m_macroList->setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
}

// What the host tells of commands and assignments.

void cMacroBindingView::onmacroAdded(const QString& profileID, const cJsonValue& macro)
{
    if (profileID != m_profileId)
        return;
    const QString macroID = macro["uid"].toString();
    selectMacroRow(macroID);
    // The list may hear of the command after the view; a row that it makes then is selected as well.
    QMetaObject::invokeMethod(this, "onMacroEditorClosed", Qt::QueuedConnection, Q_ARG(QString, macroID));
    refreshSyncButton();
}

void cMacroBindingView::onmacroChanged(const QString& profileID, const cJsonValue& macro)
{
    if (profileID != m_profileId)
        return;
    const QString macroID = macro["uid"].toString();
    for (MagnetTextItem* label : qAsConst(m_labels)) {
        // Not the display name, which a new label has.
        if (label && label->macroID() == macroID)
            label->setText(macro["name"].toString());
    }
    selectMacroRow(macroID);
    refreshSyncButton();
}

void cMacroBindingView::onmacroDeleted(const QString& profileID, const cJsonValue& macro)
{
    if (profileID != m_profileId)
        return;
    const QString macroID = macro["uid"].toString();
    const QStringList contextIDs = m_labels.keys();
    for (const QString& contextID : contextIDs) {
        const MagnetTextItem* const label = m_labels.value(contextID);
        Gkey* const key = m_hotspots.value(contextID);
        if (!label || label->macroID() != macroID || !key)
            continue;
        if (key->cannotBeUnassignedFlag()) {
            // The old label stays until the host's events replace it.
            onUseGenericAssignment(contextID);
        } else {
            key->setMacro(QString());
            removeLabel(contextID);
        }
    }
    refreshSyncButton();
}

void cMacroBindingView::onMacroAssigned(const QString& profileID, const QString& deviceModel,
    const QString& macroID, MKey::MKey_t mode, const QString& contextID)
{
    if (!isShown(profileID, deviceModel, mode))
        return;
    const QString text = displayName(cProfileMgr().macros(m_profileId), macroID, Qt::CaseSensitive);
    removeLabel(contextID);
    addLabel(macroID, text, contextID);
    refreshSyncButton();
}

void cMacroBindingView::onAssignmentRemoved(const QString& profileID, const QString& deviceModel,
    MKey::MKey_t mode, const QString& contextID, const QString&)
{
    if (!isShown(profileID, deviceModel, mode))
        return;
    if (Gkey* const key = m_hotspots.value(contextID))
        key->setMacro(QString());
    removeLabel(contextID);
    refreshSyncButton();
}

bool cMacroBindingView::isShown(const QString& profileID, const QString& category, MKey::MKey_t mode) const
{
    return profileID == m_profileId && category == m_deviceCategory && mode == m_currentMState;
}

// The labels.

void cMacroBindingView::refreshAssignments()
{
    clearLabels();
    cProfileMgr profiles;
    const cJsonValue macros = profiles.macros(m_profileId);
    if (macros.isArray()) {
        const QStringList contextIDs = m_hotspots.keys();
        for (const QString& contextID : contextIDs) {
            const QString macroID =
                profiles.getAssignment(m_profileId, m_deviceCategory, m_currentMState, contextID);
            if (!macroID.isEmpty())
                addLabel(macroID, displayName(macros, macroID, Qt::CaseInsensitive), contextID);
        }
    }
    if (!profiles.containsDevCategory(m_profileId, m_deviceCategory))
        assignRequiredGenericMacros();
}

void cMacroBindingView::assignRequiredGenericMacros()
{
    cProfileMgr profiles;
    // The host may show another profile while it answers.
    const QString profile = m_profileId;
    // What the keys get here is no change of the user's.
    profiles.enableProfileBackup(profile, false);
    const auto keys = m_hotspots;
    for (const Gkey* key : keys) {
        if (key && key->isGenericRequired())
            useGenericMacro(profile, *key);
    }
    profiles.enableProfileBackup(profile, true);
}

void cMacroBindingView::clearLabels()
{
    // The keys are told as well: they know their command by themselves, for drags and menus.
    const QStringList contextIDs = m_labels.keys();
    for (const QString& contextID : contextIDs) {
        delete m_labels.value(contextID);
        m_labels[contextID].clear();
        if (Gkey* const key = m_hotspots.value(contextID))
            key->setMacro(QString());
    }
    m_labels.clear();
}

void cMacroBindingView::addLabel(const QString& macroID, const QString& text, const QString& contextID)
{
    const bool isHidden = cProfileMgr().getMacroByID(m_profileId, macroID)["hidden"].toBool();
    Gkey* const key = m_hotspots.value(contextID);
    if (!key)
        return;
    auto* const label = new MagnetTextItem(contextID, isHidden, rootItem());
    label->installSceneEventFilter(key);
    connect(key, SIGNAL(hoverIn()), label, SLOT(onGkeyHoverIn()));
    connect(key, SIGNAL(hoverOut()), label, SLOT(onGkeyHoverOut()));
    label->setMacroID(macroID);
    label->setExpandedMaxWidth(LabelGrownWidth);

    // The label's centre.
    QPoint anchor;
    if (key->hasLabelRect()) {
        const QPointF place = key->labelPos() - QPoint(0, LabelLift);
        label->setCollapsedWidth(key->labelMinWidth());
        label->setExpandedMaxWidth(key->labelMaxWidth());
        anchor = QPointF(place.x() + key->labelMinWidth() / 2.0, place.y()).toPoint();
        // Not the label's own corner, which lies half a text higher: the line is seen that much above the
        // place in the manifest, and manifests count on it.
        if (key->hasConnectLine())
            label->setConnectLine(key->connectLineP1() - place, key->connectLineP2() - place);
    } else {
        const QRectF place = key->keyRect();
        label->setCollapsedWidth(int(place.width()));
        anchor = QPointF(place.x() + place.width() / 2, place.y() - LabelLift).toPoint();
    }
    label->setText(text);
    m_labels[contextID] = label;
    label->show();
    label->setCenter(anchor.x(), anchor.y());
    key->setMacro(macroID);
}

void cMacroBindingView::removeLabel(const QString& contextID)
{
    delete m_labels.take(contextID);
}

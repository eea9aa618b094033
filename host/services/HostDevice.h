#pragma once

#include <cJsonValue.h>
#include <IAbstractDevice.h>

#include <QDomDocument>
#include <QDomElement>
#include <QPointF>
#include <QSize>
#include <QString>

/// A device as its folder describes it: a manifest, "manifest.xml", and pictures.
///
/// Of the manifest it reads the root's attribute `model` and the children
///
///     <presentation name short_name picture icon scale x y/>
///     <lcd width height/>
///     <memory size speed/>
///
/// `picture` and `icon` are paths of pictures, `x` and `y` the place of the picture's upper left corner on
/// the canvas while no view is open, in pixels of the scene, and `scale` its scale there. The rest of the
/// manifest is for the feature views.
class HostDevice : public IAbstractDevice
{
public:
    /// Reads the folder. A manifest that can't be used leaves a device that bears the folder's name.
    explicit HostDevice(const QString& folder);

    QString uid() const override;
    QString model() const override { return m_model; }
    cJsonValue properties() const override;

    /// Why the manifest can't be used, for the user; empty if it can.
    QString problem() const { return m_problem; }
    /// The root of the manifest; null if it can't be used.
    QDomElement manifest() const { return m_manifest.documentElement(); }
    QString folder() const { return m_folder; }
    /// The folder's name, under which its pictures are found.
    QString folderName() const;

    QString displayName() const { return m_displayName; }
    QString shortName() const { return m_shortName; }
    QString picturePath() const { return m_picturePath; }
    QString iconPath() const { return m_iconPath; }
    QPointF homePosition() const { return m_homePosition; }
    /// Above 0.
    qreal homeScale() const { return m_homeScale; }

    /// Pixels of the device's display; empty for a device without one.
    QSize displaySize() const { return m_displaySize; }
    /// Bytes of the on-board memory; 0 for a device without one.
    int memorySize() const { return m_memorySize; }
    /// Bytes that the memory takes in a second; 0 for as many as come.
    int memorySpeed() const { return m_memorySpeed; }

    /// True if a section of the manifest names the view in its attribute `viewid`.
    bool suitsView(const QString& viewId) const;

    /// The device's properties that were written, by name.
    cJsonValue& state() { return m_state; }

private:
    /// Forgets the manifest and remembers why.
    void refuseManifest(const QString& reason);
    void readPresentation();
    void readEquipment();

    QString m_folder;
    QDomDocument m_manifest;
    QString m_problem;
    QString m_model;
    QString m_displayName;
    QString m_shortName;
    QString m_picturePath;
    QString m_iconPath;
    QPointF m_homePosition;
    qreal m_homeScale = 1.0;
    QSize m_displaySize;
    int m_memorySize = 0;
    int m_memorySpeed = 0;
    cJsonValue m_state;
};

#include "HostDevice.h"

#include <HVS.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <cmath>

namespace {

/// Larger scales and places are taken for mistakes.
constexpr qreal MaxScale = 100.0;
constexpr qreal MaxCoordinate = 10000.0;
constexpr int MaxDisplaySide = 10000;
constexpr int MaxMemory = 1024 * 1024 * 1024;

/// A whole number from 0 to the limit; 0 for anything else.
int boundedNumber(const QDomElement& element, const QString& name, int limit)
{
    const int value = element.attribute(name).toInt();
    return value > 0 && value <= limit ? value : 0;
}

qreal coordinate(const QDomElement& element, const QString& name)
{
    const qreal value = element.attribute(name).toDouble();
    return std::isfinite(value) && std::abs(value) <= MaxCoordinate ? value : 0.0;
}

} // namespace

HostDevice::HostDevice(const QString& folder)
    : m_folder(folder)
    , m_model(folderName())
    , m_displayName(folderName())
    , m_shortName(folderName())
{
    const QString path = folder + QStringLiteral("/manifest.xml");
    if (!HVS::FileReadDom(path, m_manifest, false)) {
        refuseManifest(
            QCoreApplication::translate("HostDevice", "The description of the device \"%1\" can't be read.")
                .arg(folderName()));
        return;
    }
    const QString model = manifest().attribute(QStringLiteral("model"));
    if (model.isEmpty()) {
        refuseManifest(
            QCoreApplication::translate("HostDevice", "The description of the device \"%1\" names no model.")
                .arg(folderName()));
        return;
    }
    m_model = model;
    readPresentation();
    readEquipment();
}

QString HostDevice::uid() const
{
    return m_model + QStringLiteral("#demonstration");
}

cJsonValue HostDevice::properties() const
{
    cJsonValue record;
    record["uid"] = uid();
    record["device_model"] = m_model;
    record["display_name"] = m_displayName;
    record["short_name"] = m_shortName;
    record["category"] =
        manifest().firstChildElement(QStringLiteral("profiler")).attribute(QStringLiteral("category"));
    record["demonstration"] = true;
    return record;
}

QString HostDevice::folderName() const
{
    return QFileInfo(m_folder).fileName();
}

bool HostDevice::suitsView(const QString& viewId) const
{
    for (QDomElement section = manifest().firstChildElement(); !section.isNull();
         section = section.nextSiblingElement()) {
        if (section.hasAttribute(QStringLiteral("viewid"))
            && section.attribute(QStringLiteral("viewid")) == viewId)
            return true;
    }
    return false;
}

void HostDevice::refuseManifest(const QString& reason)
{
    m_manifest = QDomDocument();
    m_problem = reason;
}

void HostDevice::readPresentation()
{
    const QDomElement presentation = manifest().firstChildElement(QStringLiteral("presentation"));
    const auto text = [&](const char* name, const QString& otherwise) {
        const QString value = presentation.attribute(QLatin1String(name));
        return value.isEmpty() ? otherwise : value;
    };
    m_displayName = text("name", m_model);
    m_shortName = text("short_name", m_displayName);
    m_picturePath = text("picture", QString());
    m_iconPath = text("icon", m_picturePath);
    m_homePosition = {
        coordinate(presentation, QStringLiteral("x")), coordinate(presentation, QStringLiteral("y"))};
    const qreal scale = presentation.attribute(QStringLiteral("scale")).toDouble();
    m_homeScale = std::isfinite(scale) && scale > 0.0 && scale <= MaxScale ? scale : 1.0;
}

void HostDevice::readEquipment()
{
    const QDomElement display = manifest().firstChildElement(QStringLiteral("lcd"));
    m_displaySize = {boundedNumber(display, QStringLiteral("width"), MaxDisplaySide),
        boundedNumber(display, QStringLiteral("height"), MaxDisplaySide)};
    const QDomElement memory = manifest().firstChildElement(QStringLiteral("memory"));
    m_memorySize = boundedNumber(memory, QStringLiteral("size"), MaxMemory);
    m_memorySpeed = boundedNumber(memory, QStringLiteral("speed"), MaxMemory);
}

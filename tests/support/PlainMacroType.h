#pragma once

#include <cJsonValue.h>
#include <IMacroType.h>

#include <QStringList>

/// A command type that is known and can do nothing. Tests derive those that they need more of.
class PlainMacroType : public IMacroType
{
public:
    explicit PlainMacroType(const cJsonValue& info = cJsonValue(), bool isPrivate = false)
        : m_info(info)
        , m_isPrivate(isPrivate)
    { }

    /// An info record of a type whose commands fit these types of controls, with nothing else in it.
    static cJsonValue infoWith(const QStringList& controlTypes)
    {
        cJsonValue info;
        info["control_types"] = cJsonValue(cJsonValue::arrayValue);
        for (const QString& type : controlTypes) {
            cJsonValue entry;
            entry["control_type"] = type;
            info["control_types"].append(entry);
        }
        return info;
    }

    cJsonValue info() override { return m_info; }
    IMacroEditor* editor(cJsonValue) override { return nullptr; }
    cJsonValue XmlToJson(QDomElement) override { return cJsonValue(); }
    QDomElement JsonToXml(QDomDocument, cJsonValue) override { return QDomElement(); }
    cPlayStatePtr createPlayState(cJsonValue) override { return cPlayStatePtr(); }
    bool isRepeatable() override { return false; }
    bool isPrivate() override { return m_isPrivate; }
    bool isFixedName() override { return false; }
    int getPriority() override { return 0; }

    cJsonValue m_info;

private:
    const bool m_isPrivate;
};

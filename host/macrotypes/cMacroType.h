#pragma once

#include "IInputSink.h"
#include "RecordXml.h"

#include <IElementReader.h>
#include <IMacroType.h>

#include <QLatin1String>
#include <QString>
#include <QStringList>

#include <optional>

/// What tells one command type from the others.
class MacroTypeTraits
{
public:
    /// The `namespace` of the type's commands.
    QString uid;
    /// For people.
    QString displayName;
    /// File name of the type's icon among the application's pictures.
    QLatin1String icon;
    QStringList controlTypes;
    int priority = 0;
    bool isRepeatable = true;
    bool isPrivate = false;
    bool isFixedName = false;
    /// The element that `data` is in XML, and the members of `data` that are its attributes.
    QLatin1String tag;
    RecordFields fields;
};

/// What the host's command types have in common.
///
/// XML: each type has one element. A type accepts an element only if it understands all of it, and writes an
/// element only if that says all of the `data`; otherwise the answer is null, and the store keeps what it has
/// in the form in which it came.
class cMacroType : public IMacroType, public IElementReader
{
    Q_OBJECT

public:
    cMacroType(MacroTypeTraits traits, InputSinkPtr sink);

    cJsonValue info() override;
    cJsonValue XmlToJson(QDomElement macroDataDomElement) override;
    cJsonValue read(const XmlElement& element) const override;
    QDomElement JsonToXml(QDomDocument doc, cJsonValue macro) override;
    cPlayStatePtr createPlayState(cJsonValue macro) override;
    bool isRepeatable() override { return m_traits.isRepeatable; }
    bool isPrivate() override { return m_traits.isPrivate; }
    bool isFixedName() override { return m_traits.isFixedName; }
    int getPriority() override { return m_traits.priority; }

    /// All control types.
    static QStringList anyControl();

protected:
    /// Fills `data` from the type's element, here from its attributes; false if that would leave something
    /// out.
    virtual bool readElement(const XmlElement& element, cJsonValue& data) const;
    /// The opposite; the element is empty.
    virtual bool writeElement(const cJsonValue& data, QDomElement& element) const;
    /// A run of a command with that data, or null if the data is not of this type or can't be carried out.
    virtual cPlayStatePtr run(const cJsonValue& data) = 0;

    /// A run that sends this and is over; null for nothing.
    cPlayStatePtr runOnce(const std::optional<InputEvent>& event) const;

    const MacroTypeTraits& traits() const { return m_traits; }
    const InputSinkPtr& sink() const { return m_sink; }

private:
    MacroTypeTraits m_traits;
    InputSinkPtr m_sink;
};

#pragma once

#include "cMacroType.h"

#include <optional>

/// Commands that type a text of one or more lines.
///
/// `data`: `text`, its lines separated by "\n". In XML each line is an element, because white space between
/// elements gets lost on the way through some readers.
class cTextBlockType : public cMacroType
{
    Q_OBJECT

public:
    explicit cTextBlockType(InputSinkPtr sink);

    IMacroEditor* editor(cJsonValue macroData) override;

    static std::optional<QString> fromData(const cJsonValue& data);
    static cJsonValue toData(const QString& text);

protected:
    bool readElement(const XmlElement& element, cJsonValue& data) const override;
    bool writeElement(const cJsonValue& data, QDomElement& element) const override;
    cPlayStatePtr run(const cJsonValue& data) override;
};

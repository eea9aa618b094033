#include "DocumentNames.h"
#include "ModeNames.h"
#include "ProfileDocument.h"
#include "XmlFragment.h"

#include <JsonText.h>

#include <QSet>
#include <QXmlStreamWriter>

using namespace DocumentNames;

namespace {

/// Writes one document. White space is written by hand, so that kept elements stay as they are.
class Writer
{
public:
    Writer(QByteArray* document, const MacroTypeLookup& types)
        : m_xml(document)
        , m_types(types)
    { }

    void write(const std::vector<Profile>& profiles)
    {
        m_xml.setCodec("UTF-8");
        m_xml.writeStartDocument();
        start(Root);
        attribute(RootVersion, QString::number(ProfileDocument::Version));
        for (const Profile& profile : profiles)
            writeProfile(profile);
        end();
        m_xml.writeCharacters(QStringLiteral("\n"));
        m_xml.writeEndDocument();
    }

private:
    void indent() { m_xml.writeCharacters(QLatin1Char('\n') + QString(4 * m_depth, QLatin1Char(' '))); }

    void start(const char* name)
    {
        indent();
        m_xml.writeStartElement(QLatin1String(name));
        ++m_depth;
    }

    /// Ends an element whose children stand on lines of their own.
    void end()
    {
        --m_depth;
        indent();
        m_xml.writeEndElement();
    }

    void endEmpty()
    {
        --m_depth;
        m_xml.writeEndElement();
    }

    void attribute(const char* name, const QString& value)
    {
        m_xml.writeAttribute(QLatin1String(name), value);
    }

    void attributeUnlessEmpty(const char* name, const QString& value)
    {
        if (!value.isEmpty())
            attribute(name, value);
    }

    void flagIfSet(const char* name, bool value)
    {
        if (value)
            attribute(name, QLatin1String(True));
    }

    void textElement(const char* name, const QString& text)
    {
        if (text.isEmpty())
            return;
        start(name);
        m_xml.writeCharacters(text);
        endEmpty();
    }

    void fragment(const QString& text)
    {
        indent();
        XmlFragment::writeText(m_xml, text);
    }

    /// The keys of a record that have no place of their own.
    void writeProperties(const cJsonValue& record, const QSet<QString>& placed)
    {
        for (const QString& key : HVS::jsonKeys(record)) {
            if (placed.contains(key))
                continue;
            start(Property);
            attribute(PropertyName, key);
            m_xml.writeCharacters(QString::fromUtf8(HVS::toJsonText(record[key.toUtf8().constData()])));
            endEmpty();
        }
    }

    void writeProfile(const Profile& profile)
    {
        start(ProfileElement);
        for (const char* name : ProfileTexts)
            attributeUnlessEmpty(name, profile.properties[name].toString());
        for (const char* name : ProfileFlags)
            flagIfSet(name, profile.properties[name].toBool());
        for (const auto& [name, value] : profile.extensionAttributes)
            m_xml.writeAttribute(name, value);
        for (const char* name : ProfileElements)
            textElement(name, profile.properties[name].toString());
        textElement(Icon, QString::fromLatin1(profile.icon.toBase64()));
        writeSignatures(profile.properties[Signatures]);
        writeMacros(profile.macros);
        writeAssignments(profile);
        writeBackup(profile);
        for (const auto& [model, pointer] : profile.pointers)
            writePointer(model, pointer);
        static const QSet<QString> placed {"uid", "name", "deviceid", "migration", "uselcd", "lock",
            "description", "target", "script", Signatures, Macros, Assignments};
        writeProperties(profile.properties, placed);
        for (const QString& element : profile.extensionElements)
            fragment(element);
        end();
    }

    void writeSignatures(const cJsonValue& signatures)
    {
        for (unsigned i = 0; i < signatures.size(); ++i) {
            start(Signature);
            for (const char* key : SignatureKeys)
                attribute(key, signatures[int(i)][key].toString());
            endEmpty();
        }
    }

    void writeMacros(const std::vector<cJsonValue>& macros)
    {
        if (macros.empty())
            return;
        start(Macros);
        for (const cJsonValue& macro : macros)
            writeMacro(macro);
        end();
    }

    void writeMacro(const cJsonValue& macro)
    {
        start(Macro);
        for (const char* name : MacroTexts)
            attribute(name, macro[name].toString());
        flagIfSet(Hidden, macro[Hidden].toBool());
        const cJsonValue& attributes = macro[ExtensionAttributes];
        for (const QString& name : HVS::jsonKeys(attributes))
            m_xml.writeAttribute(name, attributes[name.toUtf8().constData()].toString());
        if (macro.contains(Repeat)) {
            const cJsonValue& repeat = macro[Repeat];
            start(Repeat);
            attribute(RepeatMode, repeat[RepeatMode].toString());
            attribute(RepeatDelay, QString::number(repeat[RepeatDelay].toInt()));
            endEmpty();
        }
        writeData(macro);
        static const QSet<QString> placed {"uid", "name", "display_name", "namespace", Hidden, Repeat, Data,
            ExtensionElements, ExtensionAttributes};
        writeProperties(macro, placed);
        const cJsonValue& elements = macro[ExtensionElements];
        for (unsigned i = 0; i < elements.size(); ++i)
            fragment(elements[int(i)].toString());
        end();
    }

    void writeData(const cJsonValue& macro)
    {
        const cJsonValue& data = macro[Data];
        if (data.isNull())
            return;
        start(Data);
        if (data.contains(RawData)) {
            XmlFragment::writeText(m_xml, data[RawData].toString());
            return endEmpty();
        }
        const cMacroTypePtr type = m_types ? m_types(macro["namespace"].toString()) : cMacroTypePtr();
        const QDomElement element = type ? type->JsonToXml(m_dom, macro) : QDomElement();
        if (!element.isNull()) {
            XmlFragment::writeElement(m_xml, element);
        } else {
            attribute(DataFormat, QLatin1String(DataFormatJson));
            m_xml.writeCharacters(QString::fromUtf8(HVS::toJsonText(data)));
        }
        endEmpty();
    }

    void writeAssignment(const ControlKey& key, const QString& macroUid)
    {
        start(Assignment);
        attribute(MacroUid, macroUid);
        attribute(ContextId, key.contextId);
        attribute(ShiftState, ModeNames::toText(key.mode));
        endEmpty();
    }

    /// The entries of one category, which stand together in the map.
    void writeCategory(
        const char* name, const QString& category, const std::map<ControlKey, QString>& entries)
    {
        start(name);
        attribute(Category, category);
        bool isEmpty = true;
        for (auto entry = entries.lower_bound({category, MKey::M1, QString()});
             entry != entries.end() && entry->first.category == category; ++entry) {
            writeAssignment(entry->first, entry->second);
            isEmpty = false;
        }
        isEmpty ? endEmpty() : end();
    }

    void writeAssignments(const Profile& profile)
    {
        QStringList categories = profile.categories.values();
        for (const auto& entry : profile.assignments)
            categories.append(entry.first.category);
        categories.sort();
        categories.removeDuplicates();
        for (const QString& category : qAsConst(categories))
            writeCategory(Assignments, category, profile.assignments);
    }

    void writeBackup(const Profile& profile)
    {
        QStringList categories;
        for (const auto& entry : profile.backup)
            categories.append(entry.first.category);
        categories.removeDuplicates();
        for (const QString& category : qAsConst(categories))
            writeCategory(Backup, category, profile.backup);
    }

    void writePointer(const QString& model, const cPointerProperties& pointer)
    {
        start(Pointer);
        attribute(Model, model);
        attribute(Speed, QString::number(pointer.speed));
        flagIfSet(Acceleration, pointer.acceleration);
        attribute(ReportRate, QString::number(pointer.reportRate));
        attribute(DefaultLevel, QString::number(pointer.dpi.defaultLevel));
        attribute(ShiftLevel, QString::number(pointer.dpi.shiftLevel));
        for (const cDpiSettings::Level& level : pointer.dpi.levels) {
            start(Dpi);
            attribute("x", QString::number(level.x));
            attribute("y", QString::number(level.y));
            endEmpty();
        }
        pointer.dpi.levels.isEmpty() ? endEmpty() : end();
    }

    QXmlStreamWriter m_xml;
    const MacroTypeLookup& m_types;
    /// Makes the elements of command types.
    QDomDocument m_dom;
    int m_depth = 0;
};

} // namespace

QByteArray ProfileDocument::write(const std::vector<Profile>& profiles, const MacroTypeLookup& types)
{
    QByteArray document;
    Writer(&document, types).write(profiles);
    return document;
}

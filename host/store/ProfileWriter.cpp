#include "DocumentNames.h"
#include "ModeNames.h"
#include "ProfileDocument.h"
#include "XmlFragment.h"

#include <JsonText.h>

#include <QSet>
#include <QXmlStreamWriter>

#include <algorithm>
#include <iterator>

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
        writeRootExtension(profiles);
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
        m_xml.writeAttribute(QLatin1String(name), XmlFragment::representable(value));
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

    /// An element with a text and what is kept of it; none if there is neither.
    void textElement(const char* name, const QString& text, const cJsonValue& extension)
    {
        if (text.isEmpty() && extension.isNull())
            return;
        start(name);
        writeExtensionAttributes(extension, NoKeys);
        XmlFragment::writeCharacters(m_xml, text);
        writeInlineElements(extension);
        endEmpty();
    }

    /// Elements that stand behind a text, in which white space counts.
    void writeInlineElements(const cJsonValue& record)
    {
        forExtensionElements(record, [&](const QString& text) { XmlFragment::writeText(m_xml, text); });
    }

    void writeRootExtension(const std::vector<Profile>& profiles)
    {
        cJsonValue root;
        for (const Profile& profile : profiles) {
            const cJsonValue& attributes = profile.extensions.parts[Root][ExtensionAttributes];
            for (const QString& name : HVS::jsonKeys(attributes)) {
                if (!root[ExtensionAttributes].contains(name.toUtf8().constData()))
                    root[ExtensionAttributes][name] = attributes[name.toUtf8().constData()];
            }
        }
        writeExtensionAttributes(root, RootKeys);
    }

    void json(const cJsonValue& value)
    {
        QString text = QString::fromUtf8(HVS::toJsonText(value));
        // The characters that JSON may hold and XML may not.
        for (const QChar each : {QChar(0xFFFE), QChar(0xFFFF)})
            text.replace(each, QStringLiteral("\\u%1").arg(each.unicode(), 4, 16));
        XmlFragment::writeCharacters(m_xml, text);
    }

    void fragment(const QString& text)
    {
        indent();
        XmlFragment::writeText(m_xml, text);
    }

    /// The keys of a record that have no place of their own, or whose value does not fit in it.
    void writeProperties(const cJsonValue& record, const QSet<QString>& placed, const cJsonValue& parts)
    {
        for (const QString& key : HVS::jsonKeys(record)) {
            if (placed.contains(key))
                continue;
            start(Property);
            attribute(PropertyName, key);
            const cJsonValue& extension = parts[Property][key.toUtf8().constData()];
            writeExtensionAttributes(extension, PropertyKeys);
            json(record[key.toUtf8().constData()]);
            writeInlineElements(extension);
            endEmpty();
        }
    }

    /// The text under the key; empty, and noted as not placed, if the value is no text or XML can't hold it.
    static QString placedText(const cJsonValue& record, const char* key, QSet<QString>& placed)
    {
        const cJsonValue& value = record[key];
        QString text = value.toString();
        if (value.isNull() || (value == cJsonValue(text) && XmlFragment::isRepresentable(text)))
            return text;
        placed.remove(QLatin1String(key));
        return QString();
    }

    /// Kept attributes of a record. Records also come from callers, who may have put anything under the key.
    template<typename Names>
    void writeExtensionAttributes(const cJsonValue& record, const Names& known)
    {
        const cJsonValue& attributes = record[ExtensionAttributes];
        for (const QString& name : HVS::jsonKeys(attributes)) {
            const bool isKnown = std::any_of(std::begin(known), std::end(known),
                [&](const char* each) { return name == QLatin1String(each); });
            if (!isKnown && XmlFragment::isName(name))
                m_xml.writeAttribute(
                    name, XmlFragment::representable(attributes[name.toUtf8().constData()].toString()));
        }
    }

    /// Kept elements of a record; as above.
    template<typename Use>
    static void forExtensionElements(const cJsonValue& record, const Use& use)
    {
        const cJsonValue& elements = record[ExtensionElements];
        for (unsigned i = 0; i < elements.size(); ++i) {
            const QString text = elements[int(i)].toString();
            if (!text.isEmpty() && XmlFragment::isElements(text, ProfileDocument::MaxDepth))
                use(text);
        }
    }

    /// Returns true if there are any.
    bool writeExtensionElements(const cJsonValue& record)
    {
        bool isAny = false;
        forExtensionElements(record, [&](const QString& text) {
            fragment(text);
            isAny = true;
        });
        return isAny;
    }

    /// Ends an element that has nothing but what is kept of a record.
    void endWithExtensions(const cJsonValue& record) { writeExtensionElements(record) ? end() : endEmpty(); }

    void writeProfile(const Profile& profile)
    {
        start(ProfileElement);
        QSet<QString> placed {"uid", "name", "deviceid", "migration", "uselcd", "lock", "description",
            "target", "script", Signatures, Macros, Assignments};
        for (const char* name : ProfileTexts)
            attributeUnlessEmpty(name, placedText(profile.properties, name, placed));
        for (const char* name : ProfileFlags)
            flagIfSet(name, profile.properties[name].toBool());
        for (const auto& [name, value] : profile.extensions.attributes)
            m_xml.writeAttribute(name, value);
        for (const char* name : ProfileElements)
            textElement(name, placedText(profile.properties, name, placed), profile.extensions.parts[name]);
        textElement(Icon, QString::fromLatin1(profile.icon.toBase64()), profile.extensions.parts[Icon]);
        writeSignatures(profile.properties[Signatures]);
        writeMacros(profile);
        writeAssignments(profile);
        writeBackup(profile);
        for (const auto& [model, pointer] : profile.pointers)
            writePointer(model, pointer, profile.extensions.parts[Pointer][model.toUtf8().constData()]);
        writeProperties(profile.properties, placed, profile.extensions.parts);
        for (const QString& element : profile.extensions.elements)
            fragment(element);
        end();
    }

    void writeSignatures(const cJsonValue& signatures)
    {
        for (unsigned i = 0; i < signatures.size(); ++i) {
            start(Signature);
            for (const char* key : SignatureKeys)
                attribute(key, signatures[int(i)][key].toString());
            writeExtensionAttributes(signatures[int(i)], SignatureKeys);
            endWithExtensions(signatures[int(i)]);
        }
    }

    void writeMacros(const Profile& profile)
    {
        const cJsonValue& extension = profile.extensions.parts[Macros];
        if (profile.macros.empty() && extension.isNull())
            return;
        start(Macros);
        writeExtensionAttributes(extension, NoKeys);
        for (const cJsonValue& macro : profile.macros)
            writeMacro(macro);
        profile.macros.empty() ? endEmpty() : end();
    }

    void writeMacro(const cJsonValue& macro)
    {
        start(Macro);
        QSet<QString> placed {"uid", "name", "display_name", "namespace", Hidden, Repeat, Data,
            ExtensionElements, ExtensionAttributes, ExtensionParts};
        for (const char* name : MacroTexts) {
            const QString text = placedText(macro, name, placed);
            if (macro.contains(name))
                attribute(name, text);
        }
        flagIfSet(Hidden, macro[Hidden].toBool());
        writeExtensionAttributes(macro, MacroAttributes);
        if (macro.contains(Repeat)) {
            const cJsonValue& repeat = macro[Repeat];
            start(Repeat);
            attribute(RepeatMode, repeat[RepeatMode].toString());
            attribute(RepeatDelay, QString::number(repeat[RepeatDelay].toInt()));
            writeExtensionAttributes(repeat, RepeatKeys);
            endWithExtensions(repeat);
        }
        writeData(macro);
        writeProperties(macro, placed, macro[ExtensionParts]);
        writeExtensionElements(macro);
        end();
    }

    void writeData(const cJsonValue& macro)
    {
        const cJsonValue& data = macro[Data];
        const cJsonValue& extension = macro[ExtensionParts][Data];
        if (data.isNull() && extension.isNull())
            return;
        start(Data);
        writeExtensionAttributes(extension, DataKeys);
        if (data.isNull())
            return endEmpty();
        if (isRaw(data)) {
            XmlFragment::writeText(m_xml, data[RawData].toString());
            return endEmpty();
        }
        const cMacroTypePtr type = m_types ? m_types(macro["namespace"].toString()) : cMacroTypePtr();
        const QDomElement element = type ? type->JsonToXml(m_dom, macro) : QDomElement();
        // What the type's element can't say is not lost: a caller may give data of any shape.
        if (!element.isNull() && type->XmlToJson(element) == data) {
            XmlFragment::writeElement(m_xml, element);
        } else {
            attribute(DataFormat, QLatin1String(DataFormatJson));
            json(data);
            writeInlineElements(extension);
        }
        endEmpty();
    }

    static bool isRaw(const cJsonValue& data)
    {
        const QString text = data[RawData].toString();
        return HVS::jsonKeys(data) == QStringList(QLatin1String(RawData)) && !text.isEmpty()
            && XmlFragment::isElements(text, ProfileDocument::MaxDepth);
    }

    void writeAssignment(const ControlKey& key, const QString& macroUid, const cJsonValue& extension)
    {
        start(Assignment);
        attribute(MacroUid, macroUid);
        attribute(ContextId, key.contextId);
        attribute(ShiftState, ModeNames::toText(key.mode));
        writeExtensionAttributes(extension, AssignmentKeys);
        endWithExtensions(extension);
    }

    /// What the document said about the assignment, as long as it is the same one.
    static const cJsonValue& extensionOf(const std::map<ControlKey, cJsonValue>& extensions,
        const ControlKey& control, const QString& macroUid)
    {
        const auto found = extensions.find(control);
        const bool isSame = found != extensions.end() && found->second[MacroUid].toString() == macroUid;
        return isSame ? found->second : cJsonValue::null();
    }

    /// The entries of one category, which stand together in the map. `parts` is what is kept of the elements
    /// that hold such entries.
    void writeCategory(const char* name, const QString& category, const cJsonValue& parts,
        const std::map<ControlKey, QString>& entries, const std::map<ControlKey, cJsonValue>& extensions)
    {
        start(name);
        attribute(Category, category);
        writeExtensionAttributes(parts[category.toUtf8().constData()], CategoryKeys);
        bool isEmpty = true;
        for (auto entry = entries.lower_bound({category, MKey::M1, QString()});
             entry != entries.end() && entry->first.category == category; ++entry) {
            writeAssignment(
                entry->first, entry->second, extensionOf(extensions, entry->first, entry->second));
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
            writeCategory(Assignments, category, profile.extensions.parts[Assignments], profile.assignments,
                profile.extensions.assignments);
    }

    void writeBackup(const Profile& profile)
    {
        QStringList categories;
        for (const auto& entry : profile.backup)
            categories.append(entry.first.category);
        categories += HVS::jsonKeys(profile.extensions.parts[Backup]);
        categories.sort();
        categories.removeDuplicates();
        for (const QString& category : qAsConst(categories))
            writeCategory(Backup, category, profile.extensions.parts[Backup], profile.backup,
                profile.extensions.backup);
    }

    void writePointer(const QString& model, const cPointerProperties& pointer, const cJsonValue& extension)
    {
        start(Pointer);
        attribute(Model, model);
        attribute(Speed, QString::number(pointer.speed));
        flagIfSet(Acceleration, pointer.acceleration);
        attribute(ReportRate, QString::number(pointer.reportRate));
        attribute(DefaultLevel, QString::number(pointer.dpi.defaultLevel));
        attribute(ShiftLevel, QString::number(pointer.dpi.shiftLevel));
        writeExtensionAttributes(extension, PointerKeys);
        for (int i = 0; i < pointer.dpi.levels.size(); ++i)
            writeLevel(
                pointer.dpi.levels[i], extension[ExtensionParts][Dpi][QByteArray::number(i).constData()]);
        const bool hasElements = writeExtensionElements(extension);
        pointer.dpi.levels.isEmpty() && !hasElements ? endEmpty() : end();
    }

    /// `extension` is what the document said of the level at this place, which may have been another one.
    void writeLevel(const cDpiSettings::Level& level, const cJsonValue& extension)
    {
        const bool isSame = extension[DpiX].toInt() == level.x && extension[DpiY].toInt() == level.y;
        const cJsonValue& kept = isSame ? extension : cJsonValue::null();
        start(Dpi);
        attribute(DpiX, QString::number(level.x));
        attribute(DpiY, QString::number(level.y));
        writeExtensionAttributes(kept, DpiKeys);
        endWithExtensions(kept);
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

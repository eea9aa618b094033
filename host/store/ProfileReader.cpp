#include "DocumentNames.h"
#include "IElementReader.h"
#include "ModeNames.h"
#include "ProfileDocument.h"
#include "TextPool.h"
#include "XmlFragment.h"

#include <JsonText.h>

#include <QCoreApplication>
#include <QDomDocument>
#include <QXmlStreamReader>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

using namespace DocumentNames;

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("ProfileDocument", text);
}

template<typename Names>
bool isOneOf(QStringView name, const Names& names)
{
    return std::any_of(
        std::begin(names), std::end(names), [&](const char* each) { return name == QLatin1String(each); });
}

/// Reads one document.
class Reader
{
public:
    Reader(const QByteArray& document, const MacroTypeLookup& types)
        : m_xml(document)
        , m_types(types)
    {
        // Names stay as they are spelled, prefixes included.
        m_xml.setNamespaceProcessing(false);
    }

    ProfileDocument::ReadResult read()
    {
        if (findRoot()) {
            if (is(Root))
                readRoot();
            else if (is(ProfileElement))
                readProfile(m_result.profiles.emplace_back());
            else
                m_xml.raiseError(translated("it holds no profiles"));
        }
        // What follows the root has to be well-formed too.
        while (!m_xml.atEnd())
            m_xml.readNext();
        if (m_xml.hasError()) {
            m_result.profiles.clear();
            m_result.error = m_result.isNewer
                ? m_xml.errorString()
                : translated("line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString());
        }
        return std::move(m_result);
    }

private:
    bool findRoot()
    {
        while (!m_xml.atEnd() && !m_xml.isStartElement()) {
            // No profile needs one, and entities are a way to make a reader swell or fetch other files.
            if (m_xml.readNext() == QXmlStreamReader::DTD)
                m_xml.raiseError(translated("it declares a document type"));
        }
        return m_xml.isStartElement();
    }

    bool is(const char* name) const { return m_xml.name() == QLatin1String(name); }

    QString attribute(const char* name)
    {
        return m_texts.text(m_xml.attributes().value(QLatin1String(name)));
    }

    int number(const char* name) { return attribute(name).toInt(); }
    bool flag(const char* name) { return attribute(name) == QLatin1String(True); }

    /// The text of the element that the reader stands on; its children are kept in the record that `part`
    /// gives. Qt's own way to read a text calls itself for each child and so ends the process when they nest
    /// deeply enough.
    template<typename Part>
    QString text(const Part& part)
    {
        QString text;
        while (!m_xml.atEnd()) {
            const QXmlStreamReader::TokenType token = m_xml.readNext();
            if (token == QXmlStreamReader::Characters)
                text += m_xml.text();
            else if (token == QXmlStreamReader::StartElement)
                keepElement(part());
            else if (token == QXmlStreamReader::EndElement)
                break;
        }
        return text;
    }

    /// The same, with the element's attributes kept apart from the known ones.
    template<typename Names, typename Part>
    QString textAndAttributes(const Names& known, const Part& part)
    {
        keepAttributes(known, part);
        return text(part);
    }

    QString fragment() { return XmlFragment::takeText(m_xml, ProfileDocument::MaxDepth); }

    /// The children of the element that the reader stands on, one after the other.
    bool nextChild() { return m_xml.readNextStartElement(); }

    void readRoot()
    {
        bool isNumber = false;
        const int version = attribute(RootVersion).toInt(&isNumber);
        if (!isNumber || version < 1)
            return m_xml.raiseError(translated("it does not say which version wrote it"));
        if (version > ProfileDocument::Version) {
            m_result.isNewer = true;
            return m_xml.raiseError(translated("a newer version of this application wrote it"));
        }
        // Prefixes of elements that are kept are explained here.
        cJsonValue root;
        keepAttributes(RootKeys, [&]() -> cJsonValue& { return root; });
        while (nextChild()) {
            if (!is(ProfileElement)) {
                m_xml.raiseError(translated("it holds something else than profiles"));
                return;
            }
            Profile& profile = m_result.profiles.emplace_back();
            readProfile(profile);
            if (!root.isNull())
                profile.extensions.parts[Root] = root;
        }
    }

    void readProfile(Profile& profile)
    {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        for (const QXmlStreamAttribute& each : attributes) {
            const QString name = each.qualifiedName().toString();
            const QString value = each.value().toString();
            if (isOneOf(name, ProfileTexts))
                profile.properties[name] = value;
            else if (isOneOf(name, ProfileFlags))
                profile.properties[name] = value == QLatin1String(True);
            else
                profile.extensions.attributes[name] = value;
        }
        while (nextChild())
            readProfileChild(profile);
    }

    void readProfileChild(Profile& profile)
    {
        const QString name = m_xml.name().toString();
        const auto part = [&]() -> cJsonValue& {
            return profile.extensions.parts[name];
        };
        if (isOneOf(name, ProfileElements))
            profile.properties[name] = textAndAttributes(NoKeys, part);
        else if (is(Icon))
            profile.icon = QByteArray::fromBase64(textAndAttributes(NoKeys, part).toLatin1());
        else if (is(Signature))
            readSignature(profile.properties[Signatures]);
        else if (is(Macros))
            readMacros(profile);
        else if (is(Assignments))
            profile.categories.insert(
                readAssignments(profile, profile.assignments, profile.extensions.assignments));
        else if (is(Backup))
            readAssignments(profile, profile.backup, profile.extensions.backup);
        else if (is(Pointer))
            readPointer(profile);
        else if (is(Property))
            readProperty(profile.properties, profile.extensions.parts);
        else
            profile.extensions.elements.append(fragment());
    }

    void readProperty(cJsonValue& record, cJsonValue& parts)
    {
        const QString name = attribute(PropertyName);
        const auto part = [&]() -> cJsonValue& {
            return parts[Property][name];
        };
        cJsonValue value;
        QString error;
        if (HVS::fromJsonText(textAndAttributes(PropertyKeys, part).toUtf8(), value, &error))
            record[name] = value;
        else
            m_xml.raiseError(error);
    }

    /// Keeps the attributes of the element that the reader stands on, apart from the known ones, in the
    /// record that `part` gives. It is only asked for if there are any: asking may make it.
    template<typename Names, typename Part>
    void keepAttributes(const Names& known, const Part& part)
    {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        for (const QXmlStreamAttribute& each : attributes) {
            if (!isOneOf(each.qualifiedName(), known))
                part()[ExtensionAttributes][each.qualifiedName().toString()] = each.value().toString();
        }
    }

    template<typename Names>
    void keepAttributes(const Names& known, cJsonValue& record)
    {
        keepAttributes(known, [&]() -> cJsonValue& { return record; });
    }

    void keepElement(cJsonValue& record) { record[ExtensionElements].append(fragment()); }

    /// What an element that should have no children holds.
    void keepElements(cJsonValue& record)
    {
        while (nextChild())
            keepElement(record);
    }

    void readSignature(cJsonValue& signatures)
    {
        cJsonValue signature;
        for (const char* key : SignatureKeys)
            signature[key] = attribute(key);
        keepAttributes(SignatureKeys, signature);
        keepElements(signature);
        signatures.append(signature);
    }

    void readMacros(Profile& profile)
    {
        keepAttributes(NoKeys, [&]() -> cJsonValue& { return profile.extensions.parts[Macros]; });
        while (nextChild()) {
            if (is(Macro))
                readMacro(profile.macros.emplace_back());
            else
                profile.extensions.elements.append(element(Macros, {}, fragment()));
        }
    }

    void readMacro(cJsonValue& macro)
    {
        macro[Hidden] = flag(Hidden);
        const QXmlStreamAttributes attributes = m_xml.attributes();
        for (const char* name : MacroTexts) {
            if (attributes.hasAttribute(QLatin1String(name)))
                macro[name] = m_texts.text(attributes.value(QLatin1String(name)));
        }
        keepAttributes(MacroAttributes, macro);
        while (nextChild()) {
            if (is(Repeat)) {
                cJsonValue& repeat = macro[Repeat];
                repeat[RepeatMode] = attribute(RepeatMode);
                repeat[RepeatDelay] = number(RepeatDelay);
                keepAttributes(RepeatKeys, repeat);
                keepElements(repeat);
            } else if (is(Data)) {
                readData(macro);
            } else if (is(Property)) {
                cJsonValue parts;
                readProperty(macro, parts);
                if (!parts.isNull())
                    macro[ExtensionParts][Property] = parts[Property];
            } else {
                keepElement(macro);
            }
        }
    }

    /// The payload. What its type does not understand, or has no type here, is kept as text.
    void readData(cJsonValue& macro)
    {
        const auto part = [&]() -> cJsonValue& {
            return macro[ExtensionParts][Data];
        };
        const QString format = attribute(DataFormat);
        if (format == QLatin1String(DataFormatJson)) {
            QString error;
            if (!HVS::fromJsonText(textAndAttributes(DataKeys, part).toUtf8(), macro[Data], &error))
                m_xml.raiseError(error);
            return;
        }
        const QXmlStreamAttributes attributes = m_xml.attributes();
        const DataContent content = readDataContent(
            m_types && format.isEmpty() ? m_types(qAsConst(macro)["namespace"].toString()) : cMacroTypePtr());
        if (!format.isEmpty() || content.hasText) {
            // Of a form that is not known.
            macro[ExtensionElements].append(element(Data, attributes, content.raw));
            return;
        }
        for (const QXmlStreamAttribute& each : attributes)
            part()[ExtensionAttributes][each.qualifiedName().toString()] = each.value().toString();
        macro[Data] = content.data;
        if (content.data.isNull() && !content.raw.isEmpty())
            macro[Data][RawData] = content.raw;
    }

    struct DataContent
    {
        /// What the type made of it; null if it made nothing.
        cJsonValue data;
        /// The content as XML text.
        QString raw;
        /// True if there is text beside the elements.
        bool hasText = false;
    };

    DataContent readDataContent(const cMacroTypePtr& type)
    {
        DataContent content;
        std::optional<XmlElement> first;
        // The type is shown its element before what follows is known.
        const auto writeFirst = [&] {
            if (first) {
                QXmlStreamWriter writer(&content.raw);
                XmlFragment::writeElement(writer, *first);
            }
            first.reset();
        };
        int children = 0;
        while (!m_xml.atEnd()) {
            const QXmlStreamReader::TokenType token = m_xml.readNext();
            if (token == QXmlStreamReader::EndElement)
                break;
            if (token == QXmlStreamReader::StartElement && ++children == 1 && type && !content.hasText) {
                first = XmlFragment::takeElement(m_xml, ProfileDocument::MaxDepth, m_texts);
            } else if (token == QXmlStreamReader::StartElement) {
                writeFirst();
                content.raw += fragment();
            } else if (token == QXmlStreamReader::Characters && !m_xml.isWhitespace()) {
                writeFirst();
                QXmlStreamWriter writer(&content.raw);
                XmlFragment::writeCharacters(writer, m_xml.text().toString());
                content.hasText = true;
            }
        }
        if (first)
            content.data = understood(*type, *first);
        if (content.data.isNull())
            writeFirst();
        return content;
    }

    /// What the type makes of the element.
    cJsonValue understood(IMacroType& type, const XmlElement& element)
    {
        if (const auto* reader = dynamic_cast<const IElementReader*>(&type))
            return reader->read(element);
        return type.XmlToJson(element.toDom(m_dom));
    }

    /// An element with these attributes around XML text.
    static QString element(
        const QString& name, const QXmlStreamAttributes& attributes, const QString& content)
    {
        QString text;
        QXmlStreamWriter writer(&text);
        writer.writeStartElement(name);
        for (const QXmlStreamAttribute& each : attributes)
            writer.writeAttribute(each.qualifiedName().toString(), each.value().toString());
        XmlFragment::writeText(writer, content);
        writer.writeEndElement();
        return text;
    }

    /// Returns the category. `entries` and `extensions` are those of the profile that the element holds.
    QString readAssignments(Profile& profile, std::map<ControlKey, QString>& entries,
        std::map<ControlKey, cJsonValue>& extensions)
    {
        const QString holder = m_xml.name().toString();
        const QString category = attribute(Category);
        keepAttributes(
            CategoryKeys, [&]() -> cJsonValue& { return profile.extensions.parts[holder][category]; });
        while (nextChild()) {
            const std::optional<MKey::MKey_t> mode = ModeNames::parse(attribute(ShiftState));
            if (!is(Assignment) || !mode) {
                // In a holder of its own, which behind the known elements is read like this again.
                QXmlStreamAttributes attributes;
                attributes.append(QLatin1String(Category), category);
                profile.extensions.elements.append(element(holder, attributes, fragment()));
                continue;
            }
            const ControlKey control {category, *mode, attribute(ContextId)};
            const QString macroUid = attribute(MacroUid);
            entries[control] = macroUid;
            cJsonValue extension;
            keepAttributes(AssignmentKeys, extension);
            keepElements(extension);
            if (!extension.isNull()) {
                extension[MacroUid] = macroUid;
                extensions[control] = extension;
            }
        }
        return category;
    }

    void readPointer(Profile& profile)
    {
        const QString model = attribute(Model);
        cPointerProperties& pointer = profile.pointers[model];
        pointer.speed = number(Speed);
        pointer.acceleration = flag(Acceleration);
        pointer.reportRate = number(ReportRate);
        pointer.dpi.defaultLevel = number(DefaultLevel);
        pointer.dpi.shiftLevel = number(ShiftLevel);
        const auto part = [&]() -> cJsonValue& {
            return profile.extensions.parts[Pointer][model];
        };
        keepAttributes(PointerKeys, part);
        while (nextChild()) {
            if (!is(Dpi)) {
                keepElement(part());
                continue;
            }
            const cDpiSettings::Level level {number(DpiX), number(DpiY)};
            cJsonValue extension;
            keepAttributes(DpiKeys, extension);
            keepElements(extension);
            if (!extension.isNull()) {
                extension[DpiX] = level.x;
                extension[DpiY] = level.y;
                part()[ExtensionParts][Dpi][QString::number(pointer.dpi.levels.size())] = extension;
            }
            pointer.dpi.levels.append(level);
        }
    }

    QXmlStreamReader m_xml;
    const MacroTypeLookup& m_types;
    TextPool m_texts;
    /// Makes the elements for command types that read no others.
    QDomDocument m_dom;
    ProfileDocument::ReadResult m_result;
};

} // namespace

namespace ProfileDocument {

ReadResult read(const QByteArray& document, const MacroTypeLookup& types)
{
    if (document.isEmpty())
        return {{}, translated("it is empty"), false};
    if (document.size() > MaxSize)
        return {{}, translated("it is larger than %1 MB").arg(MaxSize / 1024 / 1024), false};
    return Reader(document, types).read();
}

ReadResult readElement(const QDomElement& profile, const MacroTypeLookup& types)
{
    QString text;
    QXmlStreamWriter writer(&text);
    if (!profile.isNull())
        XmlFragment::writeElement(writer, profile);
    return read(text.toUtf8(), types);
}

} // namespace ProfileDocument

#include "DocumentNames.h"
#include "ModeNames.h"
#include "ProfileDocument.h"
#include "XmlFragment.h"

#include <JsonText.h>

#include <QCoreApplication>
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

    QString attribute(const char* name) const
    {
        return m_xml.attributes().value(QLatin1String(name)).toString();
    }

    int number(const char* name) const { return attribute(name).toInt(); }
    bool flag(const char* name) const { return attribute(name) == QLatin1String(True); }

    /// The text of the element that the reader stands on, its children's included. Qt's own way to read it
    /// calls itself for each child and so ends the process when they nest deeply enough.
    QString text()
    {
        QString text;
        for (int depth = 1; depth > 0 && !m_xml.atEnd();) {
            const QXmlStreamReader::TokenType token = m_xml.readNext();
            if (token == QXmlStreamReader::Characters)
                text += m_xml.text();
            else if (token == QXmlStreamReader::StartElement)
                ++depth;
            else if (token == QXmlStreamReader::EndElement)
                --depth;
        }
        return text;
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
        while (nextChild()) {
            if (is(ProfileElement))
                readProfile(m_result.profiles.emplace_back());
            else
                m_xml.raiseError(translated("it holds something else than profiles"));
        }
    }

    void readProfile(Profile& profile)
    {
        for (const QXmlStreamAttribute& each : m_xml.attributes()) {
            const QString name = each.qualifiedName().toString();
            const QString value = each.value().toString();
            if (isOneOf(name, ProfileTexts))
                profile.properties[name] = value;
            else if (isOneOf(name, ProfileFlags))
                profile.properties[name] = value == QLatin1String(True);
            else
                profile.extensionAttributes[name] = value;
        }
        while (nextChild())
            readProfileChild(profile);
    }

    void readProfileChild(Profile& profile)
    {
        const QString name = m_xml.name().toString();
        if (isOneOf(name, ProfileElements))
            profile.properties[name] = text();
        else if (is(Icon))
            profile.icon = QByteArray::fromBase64(text().toLatin1());
        else if (is(Signature))
            readSignature(profile.properties[Signatures]);
        else if (is(Macros))
            readMacros(profile);
        else if (is(Assignments))
            profile.categories.insert(readAssignments(profile, profile.assignments));
        else if (is(Backup))
            readAssignments(profile, profile.backup);
        else if (is(Pointer))
            readPointer(profile);
        else if (is(Property))
            readProperty(profile.properties);
        else
            profile.extensionElements.append(fragment());
    }

    void readProperty(cJsonValue& record)
    {
        const QString name = attribute(PropertyName);
        cJsonValue value;
        QString error;
        if (HVS::fromJsonText(text().toUtf8(), value, &error))
            record[name] = value;
        else
            m_xml.raiseError(error);
    }

    /// Keeps the attributes of the element that the reader stands on, apart from the known ones.
    template<typename Names>
    void keepAttributes(const Names& known, cJsonValue& record)
    {
        for (const QXmlStreamAttribute& each : m_xml.attributes()) {
            const QString name = each.qualifiedName().toString();
            if (!isOneOf(name, known))
                record[ExtensionAttributes][name] = each.value().toString();
        }
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
        while (nextChild())
            readMacro(profile.macros.emplace_back());
    }

    void readMacro(cJsonValue& macro)
    {
        for (const char* name : MacroTexts) {
            if (m_xml.attributes().hasAttribute(QLatin1String(name)))
                macro[name] = attribute(name);
        }
        macro[Hidden] = flag(Hidden);
        keepAttributes(MacroAttributes, macro);
        while (nextChild()) {
            if (is(Repeat)) {
                cJsonValue& repeat = macro[Repeat];
                repeat[RepeatMode] = attribute(RepeatMode);
                repeat[RepeatDelay] = number(RepeatDelay);
                keepAttributes(RepeatKeys, repeat);
                keepElements(repeat);
            } else if (is(Data)) {
                macro[Data] = readData(qAsConst(macro)["namespace"].toString());
            } else if (is(Property)) {
                readProperty(macro);
            } else {
                keepElement(macro);
            }
        }
    }

    /// The payload. What its type does not understand, or has no type here, is kept as text.
    cJsonValue readData(const QString& macroNamespace)
    {
        cJsonValue data;
        if (attribute(DataFormat) == QLatin1String(DataFormatJson)) {
            QString error;
            if (!HVS::fromJsonText(text().toUtf8(), data, &error))
                m_xml.raiseError(error);
            return data;
        }
        const cMacroTypePtr type = m_types ? m_types(macroNamespace) : cMacroTypePtr();
        QString raw;
        bool isMore = nextChild();
        if (isMore && type) {
            const QDomElement element = XmlFragment::takeElement(m_xml, m_dom, ProfileDocument::MaxDepth);
            data = type->XmlToJson(element);
            isMore = nextChild();
            if (!data.isNull() && !isMore)
                return data;
            QXmlStreamWriter writer(&raw);
            XmlFragment::writeElement(writer, element);
        }
        for (; isMore; isMore = nextChild())
            raw += fragment();
        data.clear();
        if (!raw.isEmpty())
            data[RawData] = raw;
        return data;
    }

    /// Returns the category. `entries` are those of the profile that the element holds.
    QString readAssignments(Profile& profile, std::map<ControlKey, QString>& entries)
    {
        const QString holder = m_xml.name().toString();
        QString category = attribute(Category);
        while (nextChild()) {
            const std::optional<MKey::MKey_t> mode = ModeNames::parse(attribute(ShiftState));
            if (!is(Assignment) || !mode) {
                profile.extensionElements.append(holding(holder, category, fragment()));
                continue;
            }
            const ControlKey control {category, *mode, attribute(ContextId)};
            const QString macroUid = attribute(MacroUid);
            entries[control] = macroUid;
            cJsonValue extension;
            keepAttributes(AssignmentKeys, extension);
            keepElements(extension);
            if (&entries == &profile.assignments && !extension.isNull()) {
                extension[MacroUid] = macroUid;
                profile.assignmentExtensions[control] = extension;
            }
        }
        return category;
    }

    /// An element like the one around the fragment, which holds the fragment alone. Behind the known elements
    /// it is read like this again.
    static QString holding(const QString& name, const QString& category, const QString& fragment)
    {
        QString text;
        QXmlStreamWriter writer(&text);
        writer.writeStartElement(name);
        writer.writeAttribute(QLatin1String(Category), category);
        XmlFragment::writeText(writer, fragment);
        writer.writeEndElement();
        return text;
    }

    void readPointer(Profile& profile)
    {
        cPointerProperties& pointer = profile.pointers[attribute(Model)];
        pointer.speed = number(Speed);
        pointer.acceleration = flag(Acceleration);
        pointer.reportRate = number(ReportRate);
        pointer.dpi.defaultLevel = number(DefaultLevel);
        pointer.dpi.shiftLevel = number(ShiftLevel);
        while (nextChild()) {
            pointer.dpi.levels.append({number("x"), number("y")});
            m_xml.skipCurrentElement();
        }
    }

    QXmlStreamReader m_xml;
    const MacroTypeLookup& m_types;
    /// Makes the elements that command types read.
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

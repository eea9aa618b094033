#include "HVS.h"

#include <QDebug>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextCodec>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

// The parsers below look through the text three times, each time for what the next one can't stand: a tag
// with a great many attributes costs QXmlStreamReader the square of their number; depth, entities and size
// have no limit in QDomDocument. Functions return the reason for a refusal, which is empty if there is none.

/// Most attributes of a tag.
constexpr int MaxAttributes = 256;
/// Longest document type with all that is declared in it, in characters. The attributes that it gives to
/// elements cost as much as others.
constexpr int MaxDocumentType = 4096;
/// Most references in a document with entities of its own. Each stands for up to 4096 characters, the limit
/// of QXmlStreamReader.
constexpr int MaxReferences = 10000;

QString atPlace(qint64 line, qint64 column, const QString& reason)
{
    return QStringLiteral("line %1, column %2: %3").arg(line).arg(column).arg(reason.simplified());
}

QString readBytes(const QString& path, QByteArray& bytes)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("there is no such file");
    if (!info.isFile())
        return QStringLiteral("it is not a file");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    QString tooLarge = QStringLiteral("it is larger than %1 MiB").arg(HVS::MaxDomFileSize / 1024 / 1024);
    if (file.size() > HVS::MaxDomFileSize)
        return tooLarge;
    // Files may grow, and some systems' files have content, but no size.
    bytes = file.read(HVS::MaxDomFileSize + 1);
    if (file.error() != QFile::NoError)
        return file.errorString();
    if (bytes.size() > HVS::MaxDomFileSize)
        return tooLarge;
    return bytes.isEmpty() ? QStringLiteral("it is empty") : QString();
}

QString decode(const QByteArray& bytes, QString& text)
{
    static const QRegularExpression declaration(
        QStringLiteral(R"(^(?:\xef\xbb\xbf)?<\?xml\s[^>]*\bencoding\s*=\s*["']([\w.:-]+)["'])"));
    constexpr int declarationLength = 256;
    const QString name = declaration.match(QString::fromLatin1(bytes.left(declarationLength))).captured(1);
    QTextCodec* declared = QTextCodec::codecForName(name.isEmpty() ? "UTF-8" : name.toLatin1());
    if (!declared)
        return QStringLiteral("its encoding %1 is unknown").arg(name);
    const QTextCodec* codec = QTextCodec::codecForUtfText(bytes, declared);
    QTextCodec::ConverterState state;
    text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        return QStringLiteral("it is not in the encoding %1").arg(QString::fromLatin1(codec->name()));
    return QString();
}

QString atIndex(const QString& text, int index, const QString& reason)
{
    const QStringRef read = text.leftRef(index);
    return atPlace(read.count(QLatin1Char('\n')) + 1, index - read.lastIndexOf(QLatin1Char('\n')), reason);
}

/// Counts the attributes of each tag and measures the document type.
QString checkTags(const QString& text)
{
    const auto after = [&text](const char* mark, int from) {
        const int found = text.indexOf(QLatin1String(mark), from);
        return found < 0 ? text.size() : found;
    };
    int documentType = -1;
    for (int at = text.indexOf(QLatin1Char('<')); at >= 0; at = text.indexOf(QLatin1Char('<'), at)) {
        const QStringRef rest = text.midRef(at);
        if (rest.startsWith(QLatin1String("<!--"))) {
            at = after("-->", at);
        } else if (rest.startsWith(QLatin1String("<![CDATA["))) {
            at = after("]]>", at);
        } else if (rest.startsWith(QLatin1String("<?"))) {
            at = after("?>", at);
        } else {
            // The inner declarations of a document type come up as tags of their own.
            const bool isDeclaration = rest.startsWith(QLatin1String("<!"));
            if (isDeclaration && documentType < 0)
                documentType = at;
            int attributes = 0;
            QChar quote;
            for (++at; at < text.size(); ++at) {
                const QChar c = text.at(at);
                if (!quote.isNull())
                    quote = c == quote ? QChar() : quote;
                else if (c == QLatin1Char('"') || c == QLatin1Char('\''))
                    quote = c;
                else if (c == QLatin1Char('='))
                    ++attributes;
                else if (c == QLatin1Char('>') || (isDeclaration && c == QLatin1Char('[')))
                    break;
            }
            if (attributes > MaxAttributes)
                return atIndex(
                    text, at, QStringLiteral("more than %1 attributes in a tag").arg(MaxAttributes));
            if (isDeclaration && at - documentType > MaxDocumentType) {
                return atIndex(text, at,
                    QStringLiteral("a document type of more than %1 characters").arg(MaxDocumentType));
            }
        }
    }
    return QString();
}

QString checkDocumentType(const QXmlStreamReader& reader, const QString& text)
{
    static const QRegularExpression parameterEntity(QStringLiteral("<!ENTITY\\s+%"));
    const QXmlStreamEntityDeclarations entities = reader.entityDeclarations();
    const auto isExternal = [](const QXmlStreamEntityDeclaration& entity) {
        return !entity.systemId().isEmpty() || !entity.publicId().isEmpty();
    };
    if (!reader.dtdSystemId().isEmpty() || !reader.dtdPublicId().isEmpty())
        return QStringLiteral("a document type outside of the file");
    if (std::any_of(entities.begin(), entities.end(), isExternal))
        return QStringLiteral("an entity outside of the file");
    if (parameterEntity.match(reader.text()).hasMatch())
        return QStringLiteral("a parameter entity");
    if (!entities.isEmpty() && text.count(QLatin1Char('&')) > MaxReferences)
        return QStringLiteral("more than %1 references to entities").arg(MaxReferences);
    return QString();
}

/// Reads all of the document without keeping any of it.
QString checkDocument(const QString& text, bool namespaceProcessing)
{
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(namespaceProcessing);
    int depth = 0;
    int nodes = 0;
    qint64 characters = 0;
    QString reason;
    while (!reader.atEnd() && reason.isEmpty()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        ++nodes;
        characters += reader.text().size();
        if (token == QXmlStreamReader::StartElement) {
            const QXmlStreamAttributes attributes = reader.attributes();
            nodes += attributes.size();
            for (const QXmlStreamAttribute& attribute : attributes)
                characters += attribute.value().size();
            ++depth;
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
        } else if (token == QXmlStreamReader::DTD) {
            reason = checkDocumentType(reader, text);
        }
        if (depth > HVS::MaxDomDepth)
            reason = QStringLiteral("elements are nested deeper than %1 levels").arg(HVS::MaxDomDepth);
        else if (nodes > HVS::MaxDomNodes)
            reason = QStringLiteral("more than %1 elements, attributes and texts").arg(HVS::MaxDomNodes);
        else if (characters > HVS::MaxDomFileSize)
            reason = QStringLiteral("entities expand to more than %1 characters").arg(HVS::MaxDomFileSize);
    }
    if (reason.isEmpty())
        reason = reader.errorString();
    return reason.isEmpty() ? QString() : atPlace(reader.lineNumber(), reader.columnNumber(), reason);
}

QString readDom(const QString& path, QDomDocument& document, bool namespaceProcessing)
{
    QByteArray bytes;
    QString text;
    QString reason = readBytes(path, bytes);
    if (reason.isEmpty())
        reason = decode(bytes, text);
    if (reason.isEmpty())
        reason = checkTags(text);
    if (reason.isEmpty())
        reason = checkDocument(text, namespaceProcessing);
    if (!reason.isEmpty())
        return reason;

    QDomDocument read;
    int line = 0;
    int column = 0;
    if (!read.setContent(text, namespaceProcessing, &reason, &line, &column))
        return atPlace(line, column, reason);
    document = read;
    return QString();
}

} // namespace

namespace HVS {

bool FileReadDom(const QString& path, QDomDocument& document, bool namespaceProcessing)
{
    const QString reason = readDom(path, document, namespaceProcessing);
    if (reason.isEmpty())
        return true;
    qWarning("Can't read %s: %s", qUtf8Printable(path), qUtf8Printable(reason));
    return false;
}

} // namespace HVS

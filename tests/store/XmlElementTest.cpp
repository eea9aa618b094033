#include <TestCase.h>
#include <TextPool.h>
#include <XmlElement.h>
#include <XmlFragment.h>

#include <QDomDocument>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace {

constexpr int MaxDepth = 5;

XmlElement taken(const QString& text, QString* error = nullptr)
{
    QXmlStreamReader reader(text);
    reader.readNextStartElement();
    TextPool texts;
    XmlElement element = XmlFragment::takeElement(reader, MaxDepth, texts);
    if (error)
        *error = reader.errorString();
    return element;
}

QDomElement dom(const QString& text)
{
    QDomDocument document;
    document.setContent(text);
    return document.documentElement();
}

template<typename Element>
QString written(const Element& element)
{
    QString text;
    QXmlStreamWriter writer(&text);
    XmlFragment::writeElement(writer, element);
    return text;
}

} // namespace

class XmlElementTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void takenElementHoldsWhatTheTextSays();
    void allFormsAreWrittenAlike_data();
    void allFormsAreWrittenAlike();
    void readerStandsAtTheEndOfWhatItGave();
    void nestingTooDeeplyIsAnErrorOfTheReader();
    void domWithMoreThanElementsAndTextsIsRefused_data();
    void domWithMoreThanElementsAndTextsIsRefused();
    void contentIsToldApart_data();
    void contentIsToldApart();
};

void XmlElementTest::takenElementHoldsWhatTheTextSays()
{
    const XmlElement element = taken("<a y='1' x='&lt;2'>t&amp;u<b/> <c><d/></c></a>");
    QCOMPARE(element.name, QString("a"));
    QVERIFY(!element.isText());
    QCOMPARE(element.attributes.size(), std::size_t(2));
    QCOMPARE(*element.attribute(QLatin1String("x")), QString("<2"));
    QCOMPARE(*element.attribute(QLatin1String("y")), QString("1"));
    QVERIFY(!element.attribute(QLatin1String("z")));
    QCOMPARE(element.children.size(), std::size_t(4));
    QVERIFY(element.children[0].isText());
    QCOMPARE(element.children[0].text, QString("t&u"));
    QCOMPARE(element.children[1].name, QString("b"));
    QCOMPARE(element.children[2].text, QString(" "));
    QCOMPARE(element.children[3].children.at(0).name, QString("d"));
}

void XmlElementTest::allFormsAreWrittenAlike_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "<a/>";
    QTest::newRow("attributes in their order") << R"(<a b="2" c="1" z="&quot;"/>)";
    QTest::newRow("text") << "<a>one &lt; two</a>";
    QTest::newRow("line ends") << "<a>one&#13;\ntwo</a>";
    QTest::newRow("mixed") << R"(<a>one<b c="1"/>two<d>  </d></a>)";
    QTest::newRow("nested") << "<a><b><c><d/></c></b><b/></a>";
    QTest::newRow("prefix") << R"(<a><b x:c="1"/></a>)";
}

void XmlElementTest::allFormsAreWrittenAlike()
{
    QFETCH(const QString, text);
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    reader.readNextStartElement();
    TextPool texts;
    const XmlElement element = XmlFragment::takeElement(reader, MaxDepth, texts);
    QCOMPARE(written(element), text);
    QDomDocument document;
    const QDomElement asDom = element.toDom(document);
    QCOMPARE(written(asDom), text);
    const auto back = XmlElement::fromDom(asDom);
    QVERIFY(back);
    QCOMPARE(written(*back), text);
}

void XmlElementTest::readerStandsAtTheEndOfWhatItGave()
{
    QXmlStreamReader reader(QString("<r><a><b/></a><c/></r>"));
    reader.readNextStartElement();
    reader.readNextStartElement();
    TextPool texts;
    XmlFragment::takeElement(reader, MaxDepth, texts);
    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("a"));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("c"));
}

void XmlElementTest::nestingTooDeeplyIsAnErrorOfTheReader()
{
    QString error;
    taken("<a><a><a><a><a/></a></a></a></a>", &error);
    QCOMPARE(error, QString());
    taken("<a><a><a><a><a><a/></a></a></a></a></a>", &error);
    QCOMPARE(error, QString("elements are nested too deeply"));
}

void XmlElementTest::domWithMoreThanElementsAndTextsIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isRefused");
    QTest::newRow("elements and texts") << "<a>x<b/>y</a>" << false;
    QTest::newRow("a text that is marked as one") << "<a><![CDATA[x]]></a>" << false;
    QTest::newRow("comment") << "<a><!-- x --></a>" << true;
    QTest::newRow("comment further down") << "<a><b><!-- x --></b></a>" << true;
    QTest::newRow("instruction") << "<a><?x y?></a>" << true;
}

void XmlElementTest::domWithMoreThanElementsAndTextsIsRefused()
{
    QFETCH(const QString, text);
    QFETCH(const bool, isRefused);
    QCOMPARE(!XmlElement::fromDom(dom(text)), isRefused);
}

void XmlElementTest::contentIsToldApart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isEmpty");
    QTest::addColumn<bool>("hasElementsOnly");
    QTest::newRow("nothing") << "<a/>" << true << true;
    QTest::newRow("white space") << "<a> \n\t</a>" << true << true;
    QTest::newRow("text") << "<a> x </a>" << false << false;
    QTest::newRow("elements") << "<a> <b/>\n<c/> </a>" << false << true;
    QTest::newRow("elements with a text") << "<a><b>x</b></a>" << false << true;
    QTest::newRow("text beside elements") << "<a>x<b/></a>" << false << false;
}

void XmlElementTest::contentIsToldApart()
{
    QFETCH(const QString, text);
    QFETCH(const bool, isEmpty);
    QFETCH(const bool, hasElementsOnly);
    const XmlElement element = taken(text);
    QCOMPARE(element.isEmpty(), isEmpty);
    QCOMPARE(element.hasElementsOnly(), hasElementsOnly);
}

VELTRANO_TEST_MAIN(XmlElementTest)
#include "XmlElementTest.moc"

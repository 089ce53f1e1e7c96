// The value model, compound values, the type factory and the namespace table.
#include "TestEnvironment.h"

#include "QtSoapArray.h"
#include "QtSoapMessage.h"
#include "QtSoapNamespaces.h"
#include "QtSoapStruct.h"
#include "QtSoapTypeFactory.h"

#include <QSet>

#include <memory>

using namespace VEXA_NAMESPACE;

namespace {

QDomElement parseElement(const QString& xml)
{
    static QList<QDomDocument> keepAlive;
    QDomDocument doc;
    if (!doc.setContent(xml, true))
        qFatal("bad test XML: %s", qPrintable(xml));
    keepAlive.append(doc);
    return doc.documentElement();
}

QtSoapSimpleType* intItem(int value)
{
    return new QtSoapSimpleType(QtSoapQName(QStringLiteral("v")), value);
}

// `insert` must refuse the item with `warning` and leave it to the caller.
template <typename Insert>
void expectRefused(const char* warning, Insert insert)
{
    std::unique_ptr<QtSoapSimpleType> item(intItem(1));
    QTest::ignoreMessage(QtWarningMsg, warning);
    insert(item.get());
}

} // namespace

class TestSoapValues : public QObject
{
    Q_OBJECT
private slots:
    // Must run before anything constructs a QtSoapMessage, which fills the table.
    void namespaceTable()
    {
        const QString envelope = QStringLiteral("http://schemas.xmlsoap.org/soap/envelope/");
        const QString xsi = QStringLiteral("http://www.w3.org/1999/XMLSchema-instance");
        QtSoapNamespaces& table = QtSoapNamespaces::instance();
        QCOMPARE(table.prefixFor(envelope), QString());
        QDomDocument doc;
        QtSoapSimpleType value(QtSoapQName(QStringLiteral("v"), QStringLiteral("urn:x")), 1);
        QCOMPARE(value.toDomElement(doc).attributeNodeNS(xsi, QStringLiteral("type")).value(), QStringLiteral("xsd:int"));
        table.registerNamespace(QStringLiteral("x"), QStringLiteral("urn:x"));
        table.registerNamespace(QStringLiteral("y"), QStringLiteral("urn:x")); // the later one wins
        QCOMPARE(table.prefixFor(QStringLiteral("urn:x")), QStringLiteral("y"));
        QCOMPARE(table.prefixFor(QStringLiteral("URN:X")), QString());
        // Every message registers its prefixes again.
        { QtSoapMessage first; }
        table.registerNamespace(QStringLiteral("env"), envelope);
        QtSoapMessage second;
        QCOMPARE(table.prefixFor(envelope), QStringLiteral("SOAP-ENV"));
        // The type attribute's name follows the table, although it is built once.
        QCOMPARE(value.toDomElement(doc).attributeNodeNS(xsi, QStringLiteral("type")).prefix(), QStringLiteral("xsi"));
    }

    void typeNamesAndNameEquality()
    {
        QCOMPARE(QtSoapType::nameToType(QStringLiteral("  INT \t")), QtSoapType::Int); // trimmed, any case
        QCOMPARE(QtSoapType::typeToName(QtSoapType::NMToken), QStringLiteral("NMToken"));
        QCOMPARE(QtSoapType::typeToName(QtSoapType::Name), QStringLiteral("name"));
        QCOMPARE(QtSoapType::typeToName(QtSoapType::IDRef), QStringLiteral("IDREF"));
        QCOMPARE(QtSoapType::typeToName(QtSoapType::Type(-1)), QStringLiteral("other"));
        // Every name reads back in any case, but the two with capital keys and the three without a key.
        for (int code = QtSoapType::Duration; code <= QtSoapType::Other; ++code) {
            const auto type = QtSoapType::Type(code);
            const bool noKey = type == QtSoapType::HexBinary || type == QtSoapType::NonPositiveInteger || type >= QtSoapType::Array;
            QCOMPARE(QtSoapType::nameToType(QtSoapType::typeToName(type).toUpper()), noKey ? QtSoapType::Other : type);
        }

        // A key without a URI matches any namespace, not the other way round; URIs compare
        // without case. The struct lookups below show the rest.
        QVERIFY(!(QtSoapQName("Body", "") == QtSoapQName("Body", "urn:a")));
        QVERIFY(QtSoapQName("Body", "URN:A") == QtSoapQName("body", "urn:a"));
        // Equal after lower-casing, which is not case folding: the long s is no "s", the micro sign no mu.
        QVERIFY(!(QtSoapQName(QString::fromUtf8("\u017F")) == QtSoapQName("s")));
        QVERIFY(!(QtSoapQName(QString::fromUtf8("\u00B5")) == QtSoapQName(QString::fromUtf8("\u03BC"))));
        QVERIFY(!(QtSoapQName("a", QString::fromUtf8("urn:\u017F")) == QtSoapQName("a", "urn:s")));
        QtSoapQName assigned(QStringLiteral("a"), QStringLiteral("urn:a"));
        assigned = QStringLiteral("b"); // a plain name drops the namespace
        QCOMPARE(assigned.uri(), QString(""));
    }

    // The factory chooses by type and shape; a scalar also parses on its own, where only
    // a failed parse sets an error text, and then the name stays empty.
    void readElement_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<int>("type"); // -1: the factory makes nothing
        QTest::addColumn<int>("parsed"); // as a scalar; -1: not a scalar
        QTest::addColumn<QVariant>("value");
        const int none = -1;
        QTest::newRow("no type is a string") << "<v> text </v>" << int(QtSoapType::String) << 1 << QVariant(" text ");
        QTest::newRow("xsi int") << "<v xmlns:xsi='urn:i' xsi:type='xsd:int'>-42</v>" << int(QtSoapType::Int) << 1 << QVariant(-42);
        QTest::newRow("empty int is 0") << "<v type='int'/>" << int(QtSoapType::Int) << 1 << QVariant(0);
        QTest::newRow("plus sign is a type error") << "<p:v xmlns:p='urn:p' type='int'>+5</p:v>" << int(QtSoapType::Int) << 0 << QVariant();
        QTest::newRow("unsignedByte is an integer too") << "<v type='unsignedByte'>+5</v>" << int(QtSoapType::UnsignedByte) << 0 << QVariant();
        QTest::newRow("decimal fraction reads 0") << "<v type='decimal'>1.5</v>" << int(QtSoapType::Decimal) << 1 << QVariant(0);
        QTest::newRow("long beyond 32 bits reads 0") << "<v type='long'>9999999999</v>" << int(QtSoapType::Long) << 1 << QVariant(0);
        QTest::newRow("boolean words") << "<v type='boolean'> TRUE </v>" << int(QtSoapType::Boolean) << 1 << QVariant(true);
        QTest::newRow("boolean yes leaves value") << "<v type='boolean'>yes</v>" << int(QtSoapType::Boolean) << 1 << QVariant();
        QTest::newRow("encoded array") << "<v xmlns:x='urn:x' x:type='SOAP-ENC:Array'><i>1</i></v>" << int(QtSoapType::Array) << none << QVariant();
        QTest::newRow("unknown type, children") << "<v type='lens'><i>1</i></v>" << int(QtSoapType::Struct) << none << QVariant();
        QTest::newRow("other is a struct") << "<v type='other'><i>1</i></v>" << int(QtSoapType::Struct) << none << QVariant();
        QTest::newRow("other with text: none") << "<v type='other'>text</v>" << none << none << QVariant();
        QTest::newRow("no type, named array") << "<p:ARRAY xmlns:p='urn:p'><i>1</i></p:ARRAY>" << int(QtSoapType::Array) << none << QVariant();
        QTest::newRow("dateTime with child") << "<v type='xsd:dateTime'><i/></v>" << int(QtSoapType::Struct) << none << QVariant();
        QTest::newRow("leading comment makes a string") << "<v><!-- c --><i>1</i></v>" << int(QtSoapType::String) << none << QVariant();
        QTest::newRow("array type with text: none") << "<v type='array'>text</v>" << none << none << QVariant();
        // Named "array", so the array constructor is chosen, whose parse refuses the declared type.
        QTest::newRow("named array of another type: none") << "<p:Array xmlns:p='urn:p' type='lens'><i>1</i></p:Array>" << none
                                                           << none << QVariant();
    }

    void readElement()
    {
        QFETCH(QString, xml);
        QFETCH(int, type);
        QFETCH(int, parsed);
        QFETCH(QVariant, value);
        const QtSmartPtr<QtSoapType> made = QtSoapTypeFactory::instance().soapType(parseElement(xml));
        QCOMPARE(made.ptr() ? int(made->type()) : -1, parsed == 0 ? -1 : type);
        if (parsed < 0)
            return;
        QtSoapSimpleType scalar;
        QCOMPARE(scalar.parse(parseElement(xml)), parsed == 1);
        QCOMPARE(int(scalar.type()), type);
        QCOMPARE(scalar.value(), value);
        QCOMPARE(scalar.errorString(), parsed ? QStringLiteral("Unknown error") : QStringLiteral("Type error at element \"v\""));
        QCOMPARE(scalar.name().name(), parsed ? QStringLiteral("v") : QString());
        QCOMPARE(scalar.toBool(), value.toBool());
    }

    void arrayIndexing()
    {
        QtSoapArray list;
        for (int i = 0; i < 3; ++i)
            list.append(intItem(10 + i));
        QCOMPARE(list.count(), 3);
        QCOMPARE(list.at(2).toInt(), 12);

        QtSoapArray grid(QtSoapQName(QStringLiteral("g")), QtSoapType::Int, 2, 3);
        grid.insert(1, 2, intItem(5));
        QCOMPARE(grid.at(5).toInt(), 5);
        QCOMPARE(grid.at(1, 2).toInt(), 5);
        expectRefused("Attempted to insert item at position (2, 0) when range of QtSoapArray is (0..1, 0..2)",
                      [&](QtSoapType* item) { grid.insert(2, 0, item); });
        QCOMPARE(grid.count(), 1);
        expectRefused("Attempted to insert item at position (0) in 2-dimensional QtSoapArray.",
                      [&](QtSoapType* item) { grid.append(item); });
        expectRefused("Attempted to insert item at position (0, 0, 0) in 2-dimensional QtSoapArray.",
                      [&](QtSoapType* item) { grid.insert(0, 0, 0, item); });

        QtSoapArray typed;
        typed.insert(0, intItem(1));
        QtSoapSimpleType text(QtSoapQName(QStringLiteral("t")), QStringLiteral("x"));
        QTest::ignoreMessage(QtWarningMsg, "Attempted to insert item of type \"string\" in QtSoapArray of type \"int\".");
        typed.insert(1, &text); // refused, so it stays the caller's
        QCOMPARE(typed.count(), 1);

        // After clear(), append needs an insert first; the insert leaves lastIndex at 0.
        list.clear();
        expectRefused("Attempted to insert item at position (0) in -1-dimensional QtSoapArray.",
                      [&](QtSoapType* item) { list.append(item); });
        list.insert(4, intItem(4));
        list.append(intItem(5));
        QCOMPARE(list.count(), 2);
        QCOMPARE(list.at(1).toInt(), 5);
    }

    void arrayParse()
    {
        QtSoapArray array;
        QVERIFY(array.parse(parseElement(
            "<a><i>1</i><i position='5'>2</i><!-- skipped --><i>3</i><i position='[1]'>4</i></a>")));
        QCOMPARE(array.count(), 3);
        QCOMPARE(array.at(5).toString(), QStringLiteral("2"));
        QCOMPARE(array.at(6).toString(), QStringLiteral("3"));
        QCOMPARE(array.at(0).toString(), QStringLiteral("4")); // bracketed text reads as 0
        QVERIFY(!array.parse(parseElement("<a>text<i>1</i></a>")));
        QVERIFY(!array.parse(parseElement("<a type='xsd:struct'><i>1</i></a>")));
        QVERIFY(array.parse(parseElement("<a xmlns:e='urn:e' e:type='E:ARRAY'/>")));
    }

    void structLookupAndErrors()
    {
        QtSoapStruct s(QtSoapQName(QStringLiteral("s")));
        s.insert(new QtSoapSimpleType(QtSoapQName(QStringLiteral("Dup"), QStringLiteral("urn:a")), 1));
        s.insert(new QtSoapSimpleType(QtSoapQName(QStringLiteral("dup")), 2));
        QCOMPARE(s.count(), 2);
        QCOMPARE(s[QStringLiteral("DUP")].toInt(), 1);
        QVERIFY(!s[QtSoapQName(QStringLiteral("dup"), QStringLiteral("urn:b"))].isValid());
        QCOMPARE(s[1].toInt(), 2);
        QVERIFY(!s[2].isValid() && !s[-1].isValid());


        QtSoapStruct parsed;
        QVERIFY(!parsed.parse(parseElement("<s><a>1</a>loose text</s>")));
        QCOMPARE(parsed.errorString(), QStringLiteral("In the struct element s, the 1th child is not an element."));
        QCOMPARE(parsed.count(), 1);
        QVERIFY(!parsed.parse(parseElement("<s><!-- c --><x type='array'>text</x></s>")));
        QCOMPARE(parsed.errorString(),
                 QStringLiteral("In the struct element s, child #1, x, was not recognized as a SOAP type."));
    }

    // An iterator made before the container was copied must still walk the items it
    // started on: every item once, then the end.
    void iteratorsOverSharedItems()
    {
        QtSoapArray array(QtSoapQName(QStringLiteral("a")), QtSoapType::Int, 100);
        QtSoapStruct members(QtSoapQName(QStringLiteral("s")));
        for (int i = 0; i < 100; ++i) {
            array.insert(i, new QtSoapSimpleType(QtSoapQName(QStringLiteral("i")), i));
            members.insert(new QtSoapSimpleType(QtSoapQName(QString::number(i)), i));
        }
        QtSoapArrayIterator arrayIt(array);
        QtSoapStructIterator structIt(members);
        const QtSoapArray arrayCopy(array);
        const QtSoapStruct structCopy(members);
        QSet<int> seen;
        for (int steps = 0; steps < 100; ++steps, ++arrayIt, ++structIt) {
            QVERIFY(!arrayIt.atEnd() && arrayIt.data() && arrayIt.current() == arrayIt.data() && structIt.data());
            QCOMPARE(arrayIt.data()->toInt(), arrayIt.pos());
            seen.insert(arrayIt.pos());
            QCOMPARE(structIt.data()->toInt(), steps); // a struct keeps the order of insertion
            QCOMPARE(structIt.key().name(), QString::number(steps));
        }
        QVERIFY(arrayIt.atEnd() && !arrayIt.data() && !arrayIt.current() && !structIt.data());
        QCOMPARE(seen.size(), 100);
        QCOMPARE(arrayCopy.count() + structCopy.count(), 200);
    }

    void factoryRegistration()
    {
        QtSoapTypeFactory& factory = QtSoapTypeFactory::instance();
        QVERIFY(!factory.soapType(QDomNode()).ptr());
        static QtSoapTypeConstructor<QtSoapStruct> handler;
        QVERIFY(!factory.registerHandler(QStringLiteral("int"), &handler));
        QCOMPARE(factory.errorString(), QStringLiteral("A handler for int is already registered."));
        QVERIFY(factory.registerHandler(QStringLiteral("Lens"), &handler));
        // Stored as given, looked up lower-cased: never found.
        QCOMPARE(factory.soapType(parseElement("<v type='Lens'>t</v>"))->type(), QtSoapType::Other);
        QCOMPARE(factory.errorString(), QStringLiteral("A handler for int is already registered."));

        // Copies, moves and assignments take the error text along.
        QtSoapTypeConstructor<QtSoapSimpleType> failed;
        QVERIFY(!failed.createObject(parseElement("<v type='int'>x</v>")));
        const QString text = QStringLiteral("Type error at element \"v\"");
        QtSoapTypeConstructor<QtSoapSimpleType> copy(failed);
        const QString copied = copy.errorString();
        QtSoapTypeConstructor<QtSoapSimpleType> moved(std::move(copy));
        QtSoapTypeConstructor<QtSoapSimpleType> assigned;
        assigned = failed;
        QCOMPARE(QStringList({failed.errorString(), copied, moved.errorString(), assigned.errorString()}),
                 QStringList({text, text, text, text}));
        assigned = QtSoapTypeConstructor<QtSoapSimpleType>();
        QCOMPARE(assigned.errorString(), QString());
    }
};

UTILSDLL_TEST_MAIN(TestSoapValues)
#include "tst_soapvalues.moc"

// Replies built to hurt the parser, replayed from data/hostile: each gives a clean
// refusal or a correct parse, on the main thread and on a thread with the 1 MB stack
// that a Windows thread gets by default. And iterators over shared value trees.
#include "TestEnvironment.h"

#include "QtSoapArray.h"
#include "QtSoapMessage.h"
#include "QtSoapStruct.h"

#include <QFile>
#include <QSet>
#include <QThread>

using namespace VEXA_NAMESPACE;

namespace {

// The fault text and its detail for a refusal; for a parse, the return value's
// type, size and last item.
QString outcome(const QByteArray& xml)
{
    QtSoapMessage message;
    if (message.setContent(xml)) {
        const QtSoapType& value = message.returnValue();
        return QStringLiteral("%1 of %2, last %3").arg(value.typeName()).arg(value.count()).arg(value[value.count() - 1].toString());
    }
    return message.faultString().toString() + QStringLiteral(": ")
        + message.method()[QStringLiteral("Faultdetail")][0].toString();
}

QString outcomeOnThread(const QByteArray& xml, uint stackSize)
{
    QString result;
    QScopedPointer<QThread> thread(QThread::create([&] { result = outcome(xml); }));
    thread->setStackSize(stackSize);
    thread->start();
    thread->wait();
    return result;
}

} // namespace

class TestSoapHostile : public QObject
{
    Q_OBJECT
private slots:
    void replies_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("expected");
        const QString dtd = QStringLiteral("XML parse error: document type declarations are not allowed in a SOAP message at line ");
        // An entity holding nested markup: 20,000 and 3,000 levels out of 140 and 21 KB.
        QTest::newRow("entity of 20000 levels") << "entity-nesting-20000.xml" << dtd + "2, column 140040";
        QTest::newRow("entity of 3000 levels") << "entity-nesting-3000.xml" << dtd + "2, column 21040";
        QTest::newRow("entity of 3000 levels, UTF-16") << "utf16le-entity-nesting-3000.xml" << dtd + "2, column 21040";
        // One 100,000-character entity referenced 1,000 times.
        QTest::newRow("flat entity") << "entity-flat-1000-refs.xml" << dtd + "2, column 100039";
        QTest::newRow("entities of entities") << "entity-laughs.xml" << dtd + "2, column 538";
        QTest::newRow("external entity") << "doctype-external.xml" << dtd + "2, column 68";
        // Tags in UTF-16 are counted as decoded elements, not as bytes.
        QTest::newRow("600 items, UTF-16LE") << "utf16le-600-items.xml" << "struct of 600, last 599";
        QTest::newRow("600 items, UTF-16BE") << "utf16be-600-items.xml" << "struct of 600, last 599";
        // Plain markup: a thousand levels overflow a 1 MB stack in Qt's own DOM parser.
        QTest::newRow("100 levels") << "nesting-100.xml" << "struct of 1, last ";
        QTest::newRow("1000 levels")
            << "nesting-1000.xml" << "XML parse error: elements nested deeper than 100 levels at line 2, column 370";
        QTest::newRow("1500 levels, UTF-16")
            << "utf16le-1500-levels.xml" << "XML parse error: elements nested deeper than 100 levels at line 2, column 370";
    }

    void replies()
    {
        QFETCH(QString, file);
        QFETCH(QString, expected);
        QFile input(QStringLiteral(SOAP_HOSTILE_DATA "/") + file);
        QVERIFY(input.open(QIODevice::ReadOnly));
        const QByteArray xml = input.readAll();
        QCOMPARE(outcome(xml), expected);
        QCOMPARE(outcomeOnThread(xml, 1024 * 1024), expected);
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
        for (int steps = 0; !arrayIt.atEnd() && steps <= 100; ++arrayIt, ++steps) {
            QVERIFY(arrayIt.data() && arrayIt.current() == arrayIt.data());
            QCOMPARE(arrayIt.data()->toInt(), arrayIt.pos());
            seen.insert(arrayIt.pos());
        }
        QVERIFY(arrayIt.atEnd() && !arrayIt.data() && !arrayIt.current());
        QCOMPARE(seen.size(), 100);

        int next = 0;
        for (; structIt.data() && next <= 100; ++structIt, ++next) {
            QCOMPARE(structIt.data()->toInt(), next);
            QCOMPARE(structIt.key().name(), QString::number(next));
        }
        QCOMPARE(next, 100);
        QCOMPARE(arrayCopy.count() + structCopy.count(), 200);
    }
};

UTILSDLL_TEST_MAIN(TestSoapHostile)
#include "tst_soaphostile.moc"

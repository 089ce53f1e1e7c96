#include "TestEnvironment.h"

#include "GuiUtils.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

const QString s_references = QStringLiteral(PICTURES_DIR);
// A build whose Qt draws some dialogs differently has their references in a folder of
// its own; every other picture is compared with the common one.
#ifdef PICTURES_OVERRIDE_DIR
const QString s_overrides = QStringLiteral(PICTURES_OVERRIDE_DIR);
#else
const QString s_overrides;
#endif

QStringList pictureNames(const QString& folder)
{
    return folder.isEmpty() ? QStringList() : QDir(folder).entryList(QStringList{"*.png"}, QDir::Files, QDir::Name);
}

QString referenceOf(const QString& name)
{
    return pictureNames(s_overrides).contains(name) ? s_overrides + '/' + name : s_references + '/' + name;
}

} // namespace

// Every dialog as the showcase renders it, against committed references, so that a broken
// form or style sheet fails here. UTILSDLL_UPDATE_PICTURES=1 writes new references.
class TestDialogPictures : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QProcess showcase;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // The screen the references were drawn on: a window's size on its first show is
        // bounded by two thirds of it, and Qt 6's offscreen screen is taller than Qt 5's.
        QFile screen(m_rendered.filePath("screen.json"));
        QVERIFY(screen.open(QIODevice::WriteOnly));
        screen.write(R"({"screens": [{"name": "offscreen", "x": 0, "y": 0, "width": 800, "height": 600}]})");
        screen.close();
        environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName());
        showcase.setProcessEnvironment(environment);
        showcase.start(SHOWCASE, {"--render-dialogs", m_rendered.path()});
        // A sanitizer build on a busy machine takes minutes, not seconds; CTest's limit is the bound.
        QVERIFY(showcase.waitForFinished(240000));
        QCOMPARE(showcase.exitCode(), 0);
        QCOMPARE(pictureNames(m_rendered.path()), pictureNames(s_references));
        for (const QString& name : pictureNames(s_overrides))
            QVERIFY2(pictureNames(s_references).contains(name), qPrintable(name));
        // Each picture replaces the reference it is compared with.
        if (qEnvironmentVariableIntValue("UTILSDLL_UPDATE_PICTURES")) {
            for (const QString& name : pictureNames(m_rendered.path())) {
                const QString reference = referenceOf(name);
                QFile::remove(reference);
                QFile::copy(m_rendered.filePath(name), reference);
            }
        }
    }

    void matchesReference_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString& name : pictureNames(s_references))
            QTest::newRow(qPrintable(name)) << name;
    }

    void matchesReference()
    {
        QFETCH(QString, name);
        const QImage reference = QImage(referenceOf(name)).convertToFormat(QImage::Format_ARGB32);
        const QImage rendered = QImage(m_rendered.filePath(name)).convertToFormat(QImage::Format_ARGB32);
        QVERIFY(!reference.isNull() && !rendered.isNull());
        QCOMPARE(rendered.size(), reference.size());

        // A whole image's value is dominated by its last row, so each row is compared on its own;
        // for a row of w pixels the value is (mean channel difference) * 100 * 100 / (3 w).
        const double tolerance = 0.002; // of full scale
        const double count = reference.width() * 3.0;
        for (int y = 0; y < reference.height(); ++y) {
            double difference = 0;
            const auto result = Vexa::compareImages(reference.copy(0, y, reference.width(), 1),
                                                    rendered.copy(0, y, rendered.width(), 1), difference,
                                                    tolerance * 100.0 * 100.0 / count);
            QVERIFY2(result == Vexa::ImgCmpSimilar,
                     qPrintable(QString("row %1 differs by %2 %").arg(y).arg(difference * count / 100.0)));
        }
    }

private:
    QTemporaryDir m_rendered;
};

UTILSDLL_TEST_MAIN(TestDialogPictures)
#include "tst_dialogpictures.moc"

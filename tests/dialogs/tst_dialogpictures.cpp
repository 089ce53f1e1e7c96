#include "TestEnvironment.h"

#include "GuiUtils.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

const QString s_references = QStringLiteral(PICTURES_DIR);

QStringList pictureNames(const QString& folder)
{
    return QDir(folder).entryList(QStringList{"*.png"}, QDir::Files, QDir::Name);
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
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        showcase.setProcessEnvironment(environment);
        showcase.start(SHOWCASE, {"--render-dialogs", m_rendered.path()});
        // A sanitizer build on a busy machine takes minutes, not seconds; CTest's limit is the bound.
        QVERIFY(showcase.waitForFinished(240000));
        QCOMPARE(showcase.exitCode(), 0);
        QCOMPARE(pictureNames(m_rendered.path()), pictureNames(s_references));
        if (qEnvironmentVariableIntValue("UTILSDLL_UPDATE_PICTURES")) {
            for (const QString& name : pictureNames(m_rendered.path())) {
                QFile::remove(s_references + '/' + name);
                QFile::copy(m_rendered.filePath(name), s_references + '/' + name);
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
        const QImage reference = QImage(s_references + '/' + name).convertToFormat(QImage::Format_ARGB32);
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

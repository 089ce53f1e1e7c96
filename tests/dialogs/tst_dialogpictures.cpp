#include "TestEnvironment.h"

#include "GuiUtils.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

// Renders every dialog through the showcase and compares each picture with its
// committed reference, so that a broken form or style sheet fails here. Set
// UTILSDLL_UPDATE_PICTURES=1 to write the new pictures over the references.
class TestDialogPictures : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void matchesReference_data();
    void matchesReference();

private:
    QTemporaryDir m_rendered;
};

namespace {

// Largest mean difference of a row's colour channels, as a fraction of full scale.
const double s_tolerance = 0.002;

QString referenceFolder()
{
    return QStringLiteral(PICTURES_DIR);
}

QStringList pictureNames(const QString& folder)
{
    return QDir(folder).entryList(QStringList{"*.png"}, QDir::Files, QDir::Name);
}

} // namespace

void TestDialogPictures::initTestCase()
{
    QProcess showcase;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    showcase.setProcessEnvironment(environment);
    showcase.start(SHOWCASE, {"--render-dialogs", m_rendered.path()});
    QVERIFY(showcase.waitForFinished(60000));
    QCOMPARE(showcase.exitCode(), 0);
    QCOMPARE(pictureNames(m_rendered.path()), pictureNames(referenceFolder()));

    if (qEnvironmentVariableIntValue("UTILSDLL_UPDATE_PICTURES")) {
        for (const QString& name : pictureNames(m_rendered.path())) {
            QFile::remove(referenceFolder() + '/' + name);
            QFile::copy(m_rendered.filePath(name), referenceFolder() + '/' + name);
        }
    }
}

void TestDialogPictures::matchesReference_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : pictureNames(referenceFolder()))
        QTest::newRow(qPrintable(name)) << name;
}

void TestDialogPictures::matchesReference()
{
    QFETCH(QString, name);
    const QImage reference = QImage(referenceFolder() + '/' + name).convertToFormat(QImage::Format_ARGB32);
    const QImage rendered = QImage(m_rendered.filePath(name)).convertToFormat(QImage::Format_ARGB32);

    double difference = 0;
    const Vexa::imgCmpResult whole = Vexa::compareImages(reference, rendered, difference, 1.0);
    QVERIFY(whole != Vexa::ImgCmpInvalid);
    QVERIFY2(whole != Vexa::ImgCmpSizeDiffers,
             qPrintable(QString("%1x%2 rendered as %3x%4")
                            .arg(reference.width()).arg(reference.height())
                            .arg(rendered.width()).arg(rendered.height())));

    // The value of a whole image is dominated by its last row, so every row is
    // compared on its own. For one row of w pixels the value is
    // (mean channel difference) * 100 * 100 / (3 w).
    const double count = reference.width() * 3.0;
    const double threshold = s_tolerance * 100.0 * 100.0 / count;
    for (int y = 0; y < reference.height(); ++y) {
        double rowDifference = 0;
        const auto result = Vexa::compareImages(reference.copy(0, y, reference.width(), 1),
                                                rendered.copy(0, y, rendered.width(), 1), rowDifference, threshold);
        QVERIFY2(result == Vexa::ImgCmpSimilar,
                 qPrintable(QString("row %1 differs by %2 %").arg(y).arg(rowDifference * count / 100.0)));
    }
}

UTILSDLL_TEST_MAIN(TestDialogPictures)
#include "tst_dialogpictures.moc"

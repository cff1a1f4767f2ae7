/// Sections on paper: their documents are read back and measured.
#include "display/seismicplot.h"
#include "frame/mainwindow.h"
#include "frame/sectionexportdialog.h"
#include "frame/windowactions.h"
#include "tests/brokenplaces.h"
#include "tests/gui/displayfixture.h"
#include "widgets/numberedit.h"

#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QXmlStreamReader>

class SectionExportTest : public QObject
{
    Q_OBJECT

private slots:
    void aPdfIsAsLargeAsItsSection();
    void anSvgPictureIsMeasuredInHundredthsOfAMillimetre();
    void aSpikeStandsAtItsMillimetre();
    void labelsAndSideLabelAreText();
    void coloursAreAPicture();
    void aMapReachesBothBorders();
    void aFileIsWrittenWholeOrNotAtAll();
    void aFormerFileStaysWhereNothingCanBeWritten();
    void centimetresAndInchesFollowEachOther();
    void theDialogStartsAtTheDisplaysSpacing();
    void aLargeEnsembleTakesSeconds();
    void theActionStandsInTheFileMenu();
};

constexpr double spikeMs = 1000.0;
constexpr int spikeTrace = 40;

/// A display of 100 traces of 2 s at 4 ms, of zeros but for a spike of one trace width.
struct SectionFixture : DisplayFixture {
    SectionFixture(int nTraces = 100, int nSamples = 500) : DisplayFixture(1, nSamples), ensemble(nTraces, nSamples)
    {
        for (auto& trace : ensemble.samples) std::fill(trace.begin(), trace.end(), 0.0f);
        if (nTraces > spikeTrace) ensemble.samples[spikeTrace][int(spikeMs / 4.0)] = 1.0f;
        load(ensemble);
        display()->seismicPlot()->setNormalization(Normalize::None);
        display()->seismicPlot()->setGain(0.0f);
        display()->seismicPlot()->setClip(2.0f);
    }
    SeismicDisplay* display() { return displays[0]; }
    SectionContent content() { return sectionContent(*display(), scale, "line7.segy", nullptr, &offsets); }
    SectionPage page() { return sectionPage(*display(), scale, int(content().side.size())); }
    QByteArray save(const char* suffix)
    {
        const QString name = folder.filePath(QString("section.") + suffix);
        QString error;
        if (!saveSection(page(), content(), name, &error)) return QByteArray();
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    TestEnsemble ensemble;
    SectionScale scale{5.0, 10.0};
    std::vector<float> offsets;
    QTemporaryDir folder;
};

static QString plain(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.constData(), bytes.size());
}

/// The content streams of a PDF, unpacked.
static QString unpacked(const QByteArray& pdf)
{
    QString all;
    for (int at = pdf.indexOf("stream\n"); at >= 0; at = pdf.indexOf("stream\n", at + 7)) {
        if (at >= 3 && pdf.mid(at - 3, 3) == "end") continue;
        const int begin = at + 7, end = pdf.indexOf("endstream", begin);
        const QByteArray data = QByteArray("\0\x10\0\0", 4) + pdf.mid(begin, end - begin);
        if (uchar(pdf[begin]) == 0x78) all += plain(qUncompress(data)) + "\n";
    }
    return all;
}

/// The attribute "d" of all paths of a picture, and all its texts.
struct SvgParts {
    explicit SvgParts(const QByteArray& bytes)
    {
        QXmlStreamReader xml(bytes);
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement) continue;
            if (xml.name() == "svg") root = xml.attributes();
            if (xml.name() == "path") paths.append(xml.attributes().value("d").toString().simplified());
            if (xml.name() == "rect") rects.append(xml.attributes());
            if (xml.name() == "image") images.append(xml.attributes());
            if (xml.name() == "text") texts.append(xml.readElementText());
        }
        isSound = !xml.hasError();
    }
    QXmlStreamAttributes root;
    QStringList paths, texts;
    QList<QXmlStreamAttributes> rects, images;
    bool isSound = false;
};

void SectionExportTest::aPdfIsAsLargeAsItsSection()
{
    SectionFixture fixture;
    const QByteArray pdf = fixture.save("pdf");
    QVERIFY(pdf.startsWith("%PDF-"));
    const auto box = QRegularExpression("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)").match(plain(pdf));
    QVERIFY(box.hasMatch());
    const SectionPage page = fixture.page();
    QVERIFY(std::abs(box.captured(1).toDouble() * 25.4 / 72.0 - page.width()) < 0.1);
    QVERIFY(std::abs(box.captured(2).toDouble() * 25.4 / 72.0 - page.height()) < 0.1);

    // The frame: in hundredths of a millimetre, under the matrix that makes points of them.
    const QString commands = unpacked(pdf);
    const auto matrix = QRegularExpression("([0-9.]+) 0 0 -([0-9.]+) 0 ([0-9.]+) cm").match(commands);
    QVERIFY(matrix.hasMatch());
    const double mm = matrix.captured(1).toDouble() * 25.4 / 72.0;
    auto frames = QRegularExpression("([0-9.]+) ([0-9.]+) ([0-9.]+) ([0-9.]+) re").globalMatch(commands);
    bool isFound = false;
    while (frames.hasNext()) {
        const auto frame = frames.next();
        isFound = isFound || (std::abs(frame.captured(3).toDouble() * mm - 200.0) < 0.1 &&
                              std::abs(frame.captured(4).toDouble() * mm - 200.0) < 0.1);
    }
    QVERIFY(isFound);
}

void SectionExportTest::anSvgPictureIsMeasuredInHundredthsOfAMillimetre()
{
    SectionFixture fixture;
    const SvgParts svg(fixture.save("svg"));
    QVERIFY(svg.isSound);
    const QStringList box = svg.root.value("viewBox").toString().split(' ');
    QCOMPARE(box.size(), 4);
    const SectionPage page = fixture.page();
    for (const auto& side : {std::make_pair("width", page.width()), std::make_pair("height", page.height())}) {
        const QString text = svg.root.value(side.first).toString();
        QVERIFY(text.endsWith("mm"));
        QVERIFY(std::abs(text.left(text.size() - 2).toDouble() - side.second) < 0.1);
    }
    QVERIFY(std::abs(box[2].toDouble() / 100.0 - page.width()) < 0.1);
    bool isFound = false;
    for (const QXmlStreamAttributes& rect : svg.rects)
        isFound = isFound || (std::abs(rect.value("width").toDouble() - 20000.0) < 10.0 &&
                              std::abs(rect.value("height").toDouble() - 20000.0) < 10.0);
    if (!isFound)  // the frame may be a path
        for (const QString& path : svg.paths) isFound = isFound || path.contains("L22000,");
    QVERIFY(isFound);
}

void SectionExportTest::aSpikeStandsAtItsMillimetre()
{
    SectionFixture fixture;
    const SectionRect section = fixture.page().section();
    // 40.5 traces of 2 mm to its zero line, one more to its tip, 100 mm down; the foot a sample (0.4 mm) either side
    const double x = section.left + 81.0, y = section.top + 100.0;
    const auto number = [](double mm) { return int(std::round(100.0 * mm)); };
    const QString foot = QString("%1,%2").arg(number(x)).arg(number(y - 0.4));
    const QString tip = QString("%1,%2").arg(number(x + 2.0)).arg(number(y));
    const QString end = QString("%1,%2").arg(number(x)).arg(number(y + 0.4));
    const SvgParts svg(fixture.save("svg"));
    const QString polygon = QString("M%1 L%2 L%3").arg(foot, tip, end);
    QVERIFY2(svg.paths.filter(polygon).size() == 1, qPrintable(svg.paths.filter(tip).join('\n')));
    QCOMPARE(svg.paths.filter(tip).size(), 2);  // the lobe and the wiggle
    QCOMPARE(svg.paths.filter(QString("M%1,%2").arg(number(x)).arg(number(section.top))).size(), 1);

    const QString commands = unpacked(fixture.save("pdf"));
    const QString inPdf = QString("%1 m\n%2 l\n%3 l").arg(foot, tip, end).replace(',', ' ');
    QVERIFY(commands.contains(inPdf));
}

void SectionExportTest::labelsAndSideLabelAreText()
{
    SectionFixture fixture;
    fixture.display()->seismicPlot()->applyFilter(true, 3, 6, 50, 70, false);
    fixture.display()->seismicPlot()->applyAGC(true, 400);
    const SvgParts svg(fixture.save("svg"));
    // 200 mm of 100 traces: a label at every fifth or tenth, CHAN is 101 at the first trace
    for (const char* text :
         {"FFID:7", "CHAN", "110", "200", "0", "500", "2000", "line7.segy", "FFID 7", "3-6-50-70 Hz", "400 ms", "0 dB",
          "Polarity", "unknown", "FFID, CHAN", "500 at 4 ms", "5 traces/cm, 10 cm/s"})
        QVERIFY2(svg.texts.contains(text), qPrintable(QString(text) + " is not in: " + svg.texts.join('|')));
    QVERIFY(svg.texts.contains(QDate::currentDate().toString(Qt::ISODate)));
    QCOMPARE(svg.texts.count("500"), 2);  // left and right
    QVERIFY(!svg.texts.contains("101"));
    QVERIFY(!svg.texts.contains("Colors"));
}

void SectionExportTest::coloursAreAPicture()
{
    SectionFixture fixture;
    fixture.display()->seismicPlot()->setDisplayType(ColorB);
    SvgParts svg(fixture.save("svg"));
    QCOMPARE(svg.images.size(), 1);
    QVERIFY(svg.texts.contains("-3 to 3"));  // where a color display starts
    QVERIFY(std::abs(svg.images[0].value("width").toDouble() - 20000.0) < 10.0);
    QVERIFY(std::abs(svg.images[0].value("height").toDouble() - 20000.0) < 10.0);
    fixture.display()->seismicPlot()->setDisplayType(ColorWiggle);
    svg = SvgParts(fixture.save("svg"));
    QCOMPARE(svg.images.size(), 1);
    QVERIFY(svg.paths.size() >= 100);  // the wiggles stay lines
    QVERIFY(fixture.save("pdf").contains("/Subtype /Image"));
    QVERIFY(std::abs(sectionImageDpi(fixture.page()) - 200.0) < 1e-9);
    fixture.scale = {0.1, 200.0};  // 10 m by 4 m at most 24 million pixels
    QVERIFY(std::abs(sectionImageDpi(fixture.page()) - std::sqrt(24e6 / (10000.0 / 25.4) / (4000.0 / 25.4))) < 1e-6);
}

void SectionExportTest::aMapReachesBothBorders()
{
    SectionFixture fixture;
    for (auto& trace : fixture.ensemble.samples) std::fill(trace.begin(), trace.end(), 1.0f);
    fixture.load(fixture.ensemble);
    fixture.display()->seismicPlot()->setDisplayType(Map);
    const SvgParts svg(fixture.save("svg"));
    QCOMPARE(svg.images.size(), 1);
    for (const QXmlStreamAttribute& attribute : svg.images[0]) {
        if (!attribute.value().startsWith("data:")) continue;
        const QByteArray packed = attribute.value().toLatin1();
        const QImage image = QImage::fromData(QByteArray::fromBase64(packed.mid(packed.indexOf(',') + 1)));
        QVERIFY(!image.isNull());
        const int middle = image.height() / 2;
        QCOMPARE(image.pixel(0, middle), image.pixel(image.width() / 2, middle));
        QCOMPARE(image.pixel(image.width() - 1, middle), image.pixel(image.width() / 2, middle));
        return;
    }
    QFAIL("the picture isn't in the file");
}

void SectionExportTest::aFileIsWrittenWholeOrNotAtAll()
{
    SectionFixture fixture;
    QString error;
    QVERIFY(!saveSection(fixture.page(), fixture.content(), "/nowhere/section.pdf", &error));
    QVERIFY(error.contains("/nowhere/section.pdf"));
    const QString odd = fixture.folder.filePath("section.xyz");
    QVERIFY(!saveSection(fixture.page(), fixture.content(), odd, &error));
    QVERIFY(error.contains("section.xyz"));
    fixture.scale.tracesPerCm = 1e-3;  // a kilometre
    const QString name = fixture.folder.filePath("section.pdf");
    QVERIFY(!saveSection(fixture.page(), fixture.content(), name, &error));
    QCOMPARE(QDir(fixture.folder.path()).entryList(QDir::Files).size(), 0);
    fixture.scale.tracesPerCm = 5.0;
    QVERIFY(saveSection(fixture.page(), fixture.content(), name, &error));
    QCOMPARE(QDir(fixture.folder.path()).entryList(QDir::Files), QStringList{"section.pdf"});
    QCOMPARE(withSectionSuffix("/a.b/line"), QString("/a.b/line.pdf"));
    QCOMPARE(withSectionSuffix("/a.b/line.svg"), QString("/a.b/line.svg"));
}

static void type(QWidget* dialog, const char* name, const QString& text)
{
    auto* edit = dialog->findChild<NumberEdit*>(name);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

void SectionExportTest::aFormerFileStaysWhereNothingCanBeWritten()
{
    SectionFixture fixture;
    for (const char* name : {"section.pdf", "section.svg"}) {
        const QString found = failureOfWrites(name, [&](const QString& path, QString* error) {
            return saveSection(fixture.page(), fixture.content(), path, error);
        });
        QVERIFY2(found.isEmpty(), qPrintable(name + (": " + found)));
    }
}

void SectionExportTest::centimetresAndInchesFollowEachOther()
{
    SectionFixture fixture;
    SectionExportDialog dialog({5.0, 10.0},
                               [&](const SectionScale& scale) { return sectionPage(*fixture.display(), scale, 15); });
    dialog.show();
    const auto number = [&](const char* name) { return dialog.findChild<NumberEdit*>(name)->number(); };
    QCOMPARE(number("tpiEdit"), 12.7);
    QVERIFY(std::abs(number("ipsEdit") - 10.0 / 2.54) < 1e-9);
    auto* label = dialog.findChild<QLabel*>("sizeLabel");
    QVERIFY2(label->text().contains("the section 20.0 x 20.0 cm"), qPrintable(label->text()));
    type(&dialog, "tpiEdit", "25.4");
    QVERIFY(std::abs(number("tpcEdit") - 10.0) < 1e-9);
    type(&dialog, "ipsEdit", "5");
    QVERIFY(std::abs(number("cpsEdit") - 12.7) < 1e-9);
    QVERIFY2(label->text().contains("the section 10.0 x 25.4 cm"), qPrintable(label->text()));
    type(&dialog, "cpsEdit", "20");
    QVERIFY(std::abs(number("ipsEdit") - 20.0 / 2.54) < 1e-9);
    type(&dialog, "tpcEdit", "0.01");  // 100 m
    QVERIFY(!dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
    QVERIFY(dialog.isVisible());  // Return in a field doesn't accept
}

void SectionExportTest::theDialogStartsAtTheDisplaysSpacing()
{
    SectionFixture fixture;
    SeismicPlot* plot = fixture.display()->seismicPlot();
    plot->setTraceSpacing(25.4f);
    plot->setSampleSpacing(50.0f);  // an inch is 200 ms
    const SectionScale scale = presentScale(*fixture.display());
    QVERIFY(std::abs(scale.tracesPerCm - 10.0) < 1e-5);
    QVERIFY(std::abs(scale.cmPerSecond - 12.7) < 1e-5);
}

void SectionExportTest::aLargeEnsembleTakesSeconds()
{
    SectionFixture fixture(2000, 2000);
    unsigned state = 1;
    for (auto& trace : fixture.ensemble.samples) {
        float v = 0.0f;
        for (float& sample : trace) {
            state = state * 1664525u + 1013904223u;
            v = 0.8f * v + float(state >> 8) / float(1 << 24) - 0.5f;
            sample = v;
        }
    }
    fixture.load(fixture.ensemble);
    fixture.scale = {10.0, 10.0};
    QElapsedTimer timer;
    timer.start();
    const int pdf = fixture.save("pdf").size();
    const qint64 pdfMs = timer.restart();
    const int svg = fixture.save("svg").size();
    const qint64 svgMs = timer.elapsed();
    qInfo("2000 x 2000: pdf %d bytes in %lld ms, svg %d bytes in %lld ms", pdf, pdfMs, svg, svgMs);
    QVERIFY(pdf > 0 && pdf < 100'000'000);
    QVERIFY(svg > 0);
    QVERIFY(pdfMs < 30'000);
}

void SectionExportTest::theActionStandsInTheFileMenu()
{
    auto menu = std::make_unique<parmmenu>();
    setDisplayDefaults(menu.get());
    MainWindow window(nullptr, menu.get());
    QAction* action = window.actionTable()->action("sectionAct");
    QVERIFY(action);
    QCOMPARE(action->text().remove('&'), QString("Export Section"));
    QVERIFY(window.actionTable()->menu("&File")->actions().contains(action));
    action->trigger();  // nothing is shown yet: no dialog comes up
}

QTEST_MAIN(SectionExportTest)
#include "sectionexporttest.moc"

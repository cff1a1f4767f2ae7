/// Header words that no file format knows: a list of the test's own, from its source to all that shows a name.
#include "display/menus/scalemenu.h"
#include "frame/sourcemenu.h"
#include "tests/gui/displayfixture.h"
#include "tests/unit/frame/standinsource.h"
#include "tracedata/headertable.h"

#include <QComboBox>
#include <qwt_scale_draw.h>

#include <cstring>

/// Such a list as a reader brings along: three words, the second of two cells.
class WellWords : public HeaderWords
{
public:
    HeaderWordInfo word(const QString& name) const override
    {
        for (const auto& [at, text, told] : rows)
            if (name == text) return told;
        return {};
    }
    QString name(WordFrom0 word) const override
    {
        for (const auto& [at, text, told] : rows)
            if (word == WordFrom0(at)) return text;
        return QString();
    }
    int count() const override { return 4; }

private:
    struct Row {
        int at;
        const char* name;
        HeaderWordInfo told;
    };
    const Row rows[3] = {{0, "WELL    ", {WordFrom0(0), Integer4Format, 1, 1, "Number of the well"}},
                         {1, "CREW    ", {WordFrom0(1), Integer4Format, 2, 1, "Name of the crew"}},
                         {3, "DEPTH   ", {WordFrom0(3), Float4Format, 1, 1, "Depth of the receiver"}}};
};

/// Four traces of one well, 12.5 m apart, on a display whose window has a source with such words.
struct WellFixture {
    WellWords words;
    StandInSource source;
    HeaderTable table;
    DisplayFixture f;
    std::vector<std::vector<float>> samples{4, std::vector<float>(50, 1.0f)};
    std::vector<std::vector<int>> headers{4, std::vector<int>(4, 0)};

    WellFixture()
    {
        source.words = &words;
        source.pri = from1(words.index("WELL    "));
        source.sec = from1(words.index("DEPTH   "));
        source.told.samprat = 4.0f;
        source.told.numsmp = 50;
        source.told.maxdtr = 4;
        source.told.nth = words.count();
        // As a window does with a file that it opens.
        copySource(f.menu.get(), source);
        table.fill(source.headerWords(), source.numHeaderWords());
        f.host.words = &table;
        f[0]->setNewFile(f.menu.get());
        std::vector<float*> traces;
        std::vector<int*> heads;
        for (size_t i = 0; i < 4; ++i) {
            const float depth = 100.0f + 12.5f * float(i);
            headers[i][0] = 7;
            std::memcpy(&headers[i][3], &depth, sizeof depth);
            traces.push_back(samples[i].data());
            heads.push_back(headers[i].data());
        }
        f[0]->loadSeismicData(traces.data(), heads.data(), 4, true);
    }
};

class HeaderWordSourceTest : public QObject
{
    Q_OBJECT

private slots:
    void theTitleAndTheTraceAxisNameItsWords();
    void theReadOutNamesItsWords();
    void theLabelListsHoldItsWords();
    void anotherLabelIsReadByItsFormat();
    void theNamesStayWhenTheirSourceHasGone();
};

void HeaderWordSourceTest::theTitleAndTheTraceAxisNameItsWords()
{
    WellFixture well;
    QCOMPARE(well.f[0]->axisTitle(QwtPlot::xTop).text().simplified(), QString("WELL :7"));
    QCOMPARE(well.f[0]->headerAxis().sec().name, QString("DEPTH   "));
    QCOMPARE(well.f[0]->headerAxis().sec().type, 'F');
    QCOMPARE(well.f[0]->axisScaleDraw(QwtPlot::xTop)->label(3.0).text(), QString("125"));
}

void HeaderWordSourceTest::theReadOutNamesItsWords()
{
    WellFixture well;
    const QPoint at(qRound(well.f[0]->canvasMap(QwtPlot::xTop).transform(2.0)), 100);
    const QString line = well.f[0]->readoutAt(at).simplified();
    QVERIFY2(line.startsWith("WELL : 7 DEPTH : 112.5 Time"), qPrintable(line));
}

void HeaderWordSourceTest::theLabelListsHoldItsWords()
{
    WellFixture well;
    ScaleMenu menu(&well.f.displays, &well.f.others);
    for (const char* name : {"prilBox", "seclBox"}) {
        const auto* box = menu.findChild<QComboBox*>(name);
        QStringList rows;
        for (int i = 0; i < box->count(); ++i) rows += box->itemText(i);
        QCOMPARE(rows, QStringList({"None", "WELL     Number of the well", "CREW     Name of the crew",
                                    "DEPTH    Depth of the receiver"}));
    }
    QCOMPARE(menu.findChild<QComboBox*>("prilBox")->currentText().left(4), QString("WELL"));
    QCOMPARE(menu.findChild<QComboBox*>("seclBox")->currentText().left(5), QString("DEPTH"));
}

void HeaderWordSourceTest::anotherLabelIsReadByItsFormat()
{
    WellFixture well;
    well.f[0]->setPriKey(well.words.index("DEPTH   "));
    well.f[0]->setSecKey(well.words.index("WELL    "));
    QCOMPARE(well.f[0]->axisTitle(QwtPlot::xTop).text().simplified(), QString("DEPTH :100"));
    QCOMPARE(well.f[0]->axisScaleDraw(QwtPlot::xTop)->label(3.0).text(), QString("7"));
}

/// The window's table has them of its own: a file may be closed while its ensemble is on the screen.
void HeaderWordSourceTest::theNamesStayWhenTheirSourceHasGone()
{
    HeaderTable table;
    {
        const auto words = std::make_unique<WellWords>();
        table.fill(*words, words->count());
    }
    QCOMPARE(table.name(WordFrom0(3)), QString("DEPTH   "));
    QCOMPARE(table.description("DEPTH   "), QString("Depth of the receiver"));
    QCOMPARE(table.format("DEPTH   "), int(Float4Format));
    QCOMPARE(table.length("CREW    "), 2);
}

QTEST_MAIN(HeaderWordSourceTest)
#include "headerwordsourcetest.moc"

/// A display with a small ensemble of known samples, for the GUI tests.
#ifndef DISPLAYFIXTURE_H
#define DISPLAYFIXTURE_H

#include "display/colors/colorbarframe.h"
#include "display/displayhost.h"
#include "display/displaylist.h"
#include "display/images/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "host/flow/standardwords.h"
#include "host/report.h"
#include "sources/segywords.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"

#include <QStatusBar>
#include <QtTest>

#include <functional>
#include <memory>
#include <vector>

/// The window's part of a display, as little of it as a display needs.
class TestHost : public DisplayHost
{
public:
    bool isZooming() const override { return _isZooming; }
    void setZooming(bool on) override { _isZooming = on; }
    const HeaderWords* headerWords() const override { return words; }
    void setOverlayMode(bool on) override { isOverlay = on; }
    ColorBarFrame* overlayColorBarFrame() override { return &overlayBar; }
    Report& report() override { return printed; }

    const HeaderWords* words = &segyWords();
    bool isOverlay = false;
    ColorBarFrame overlayBar;
    PrintReport printed;

private:
    bool _isZooming = false;
};

/// nTraces of nSamples: sample j of trace i, both from 0, holds 1000 i + j. FFID is 7, CHAN 101 + i, and
/// every second trace is live.
struct TestEnsemble {
    std::vector<std::vector<float>> samples;
    std::vector<std::vector<int>> words;
    std::vector<float*> traces;
    std::vector<int*> headers;

    TestEnsemble(int nTraces, int nSamples)
    {
        samples.resize(nTraces);
        words.resize(nTraces);
        for (int i = 0; i < nTraces; ++i) {
            samples[i].resize(nSamples);
            for (int j = 0; j < nSamples; ++j) samples[i][j] = 1000.0f * i + j;
            words[i].assign(standardWordCount, 0);
            words[i][standardWordIndex("FFID    ")] = 7;
            words[i][standardWordIndex("CHAN    ")] = 101 + i;
            words[i][standardWordIndex("TRC_TYPE")] = i % 2 == 0 ? 1 : 2;
            traces.push_back(samples[i].data());
            headers.push_back(words[i].data());
        }
    }
};

/// A display of its own, 600 by 500, shown, with its host and record.
struct DisplayFixture {
    TestHost host;
    std::unique_ptr<parmmenu> menu = std::make_unique<parmmenu>();
    ColorBarFrame bar;
    QStatusBar status, control;
    DisplayList displays, others;
    std::vector<std::unique_ptr<SeismicDisplay>> owned;

    explicit DisplayFixture(int nDisplays = 1, int nSamples = 500, float rate = 4.0f)
    {
        setDisplayDefaults(menu.get());
        menu->_orvinruntime.samprat = rate;
        menu->_orvinruntime.numsmp = nSamples;
        menu->ipkey = menu->ipkeyreal = standardWordIndex("FFID    ") + 1;
        menu->iskey = menu->iskeyreal = standardWordIndex("CHAN    ") + 1;
        menu->iskeyinc = 5;
        for (int i = 0; i < nDisplays; ++i) {
            owned.push_back(
                std::make_unique<SeismicDisplay>(nullptr, "Main Display", &status, &control, true, true, i, &host));
            SeismicDisplay* display = owned.back().get();
            displays.append(display);
            display->setColorBar(&bar);
            display->setMenu(menu.get());
            display->setLists(&displays, &others);
            display->resize(600, 500);
            display->show();
        }
    }

    SeismicDisplay* operator[](int i) { return displays[i]; }

    int load(TestEnsemble& ensemble, int i = 0)
    {
        return displays[i]->loadSeismicData(ensemble.traces.data(), ensemble.headers.data(),
                                            int(ensemble.traces.size()), true);
    }
};

/// Delivers what is posted: a paint may ask for a layout, and that for another paint.
inline void settle()
{
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

/// How often a change makes a display render; the change has to bring about at least one.
inline int rendersOf(SeismicDisplay* display, const std::function<void()>& change)
{
    const MyQwtPlotCanvas* canvas = display->myCanvas();
    settle();
    const int before = canvas->renderCount();
    change();
    if (!QTest::qWaitFor([=] { return canvas->renderCount() > before; })) return 0;
    settle();
    return canvas->renderCount() - before;
}

/// A press, a drag and a release, as the mouse does it.
inline void dragMouse(QWidget* widget, const QPoint& from, const QPoint& to, Qt::MouseButton button,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::mousePress(widget, button, modifiers, from);
    for (const QPoint& at : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, button, modifiers);
        QApplication::sendEvent(widget, &move);
    }
    QTest::mouseRelease(widget, button, modifiers, to);
}

#endif

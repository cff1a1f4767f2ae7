/// Displays with a store of pictures, for the GUI tests.
#ifndef IMAGEFIXTURE_H
#define IMAGEFIXTURE_H

#include "display/images/imagestorage.h"
#include "display/images/myqwtplotcanvas.h"
#include "tests/gui/displayfixture.h"

#include <QTemporaryFile>
#include <QWheelEvent>

#include <cmath>
#include <cstdio>
#include <unistd.h>

/// What the program prints on standard output while this lives.
class PrintedLines
{
public:
    PrintedLines()
    {
        std::fflush(stdout);
        _before = dup(1);
        _file.open();
        dup2(_file.handle(), 1);
    }
    ~PrintedLines() { release(); }
    QString text()
    {
        release();
        _file.seek(0);
        return QString::fromUtf8(_file.readAll());
    }

private:
    void release()
    {
        if (_before < 0) return;
        std::fflush(stdout);
        dup2(_before, 1);
        close(_before);
        _before = -1;
    }
    QTemporaryFile _file;
    int _before;
};

/// nDisplays of 20 traces of 500 samples, 4 ms, with a store that is on. FFID is the number of the load.
struct ImageFixture : DisplayFixture {
    ImageStorage store;
    int nLoads = 0;

    explicit ImageFixture(int nDisplays = 1) : DisplayFixture(nDisplays)
    {
        for (SeismicDisplay* display : displays) display->setImageStorage(&store);
        store.setStored(true);
    }
    /// Another ensemble on a display: a spike at sample 50 times its number in each trace.
    void next(int i = 0, int nTraces = 20)
    {
        ++nLoads;
        TestEnsemble ensemble(nTraces, 500);
        for (int k = 0; k < nTraces; ++k) {
            for (int j = 0; j < 500; ++j) ensemble.samples[k][j] = j / 10 == 5 * nLoads ? 1000.0f : 0.0f;
            ensemble.words[k][standardWordIndex("FFID    ")] = nLoads;
            ensemble.words[k][standardWordIndex("CHAN    ")] = 100 * nLoads + 1 + k;
        }
        load(ensemble, i);
    }
    static QString title(SeismicDisplay* display) { return display->axisTitle(QwtPlot::xTop).text(); }
    /// Only the pixels, of the device, in one format.
    static QImage pixels(QImage image)
    {
        image.setDevicePixelRatio(1.0);
        return image.convertToFormat(QImage::Format_RGB32);
    }
    /// What the plot has painted; the last row and column of a canvas belong to no trace and no time.
    static QImage canvas(SeismicDisplay* display)
    {
        const QImage whole = pixels(display->canvas()->grab().toImage());
        const int last = int(std::ceil(display->devicePixelRatioF()));
        return whole.copy(0, 0, whole.width() - last, whole.height() - last);
    }
    QImage stored(int i) const { return pixels(store.picture(i)->toImage()); }
    /// FFID of each picture held.
    QVector<float> keys() const
    {
        QVector<float> found;
        for (int i = 0; i < store.storeTotal(); ++i) found.append(store.picture(i)->pri);
        return found;
    }
    static void wheel(SeismicDisplay* display, int delta)
    {
        const QPointF at(100, 100);
        QWheelEvent event(at, display->canvas()->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(display->canvas(), &event);
    }
};

#endif

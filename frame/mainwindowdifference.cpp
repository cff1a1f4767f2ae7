/// The difference of two screens, on a screen of its own.
#include "frame/mainwindow.h"

#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

#include <QSplitter>
#include <QStatusBar>

#include <algorithm>
#include <vector>

void MainWindow::plotDifference(int state)
{
    if (_menu->iscreens <= 1) return;
    _menu->idifference = state != 0;
    if (!_showDifference)
        makeDifference();
    else
        _displaylist.last()->parentWidget()->setVisible(state != 0);
    layoutScreens();
    showScreens();
    if (state != 0) loadDifference();
}

void MainWindow::makeDifference()
{
    auto* column = new QSplitter(Qt::Vertical);
    _splitter->addWidget(column);
    auto* display = new SeismicDisplay(column, "Difference", statusBar(), _controlStatus, false, true,
                                       _displaylist.size(), this);
    column->addWidget(display);
    display->setColorBar(_colorBarFrame);
    display->setImageStorage(_imgstore.get());
    display->setMenu(_menu);
    display->takeLook(*_displaylist.first());
    display->setDifferenceFlag(true);
    // As loud as the data: a small difference looks small.
    display->seismicPlot()->setScaleSource(_displaylist.first()->seismicPlot());
    _displaylist.append(display);
    display->setLists(&_displaylist, &_otherlist);
    _showDifference = true;
}

void MainWindow::loadDifference()
{
    const int last = _displaylist.size() - 1;
    if (_displaylist[last - 2]->traceCount() == 0 || _displaylist[last - 1]->traceCount() == 0)
        return _displaylist[last]->clearData();
    const SeismicData* a = _displaylist[last - 2]->seismicData();
    const SeismicData* b = _displaylist[last - 1]->seismicData();
    const int nTraces = std::min(a->traceCount(), b->traceCount());
    const int nSamples = std::min(a->sampleCount(), b->sampleCount());
    // The display takes its own time window out of whole traces, so these are as long as those were.
    const int whole = std::max(nSamples, _menu->_orvinruntime.numsmp);
    const int first = _displaylist[last - 1]->firstSample();
    std::vector<float> samples(size_t(nTraces) * whole, 0.0f);
    std::vector<float*> traces(nTraces);
    for (int i = 0; i < nTraces; ++i) {
        traces[i] = samples.data() + size_t(i) * whole;
        std::transform(a->getTraceValues(i, 0), a->getTraceValues(i, 0) + std::min(nSamples, whole - first),
                       b->getTraceValues(i, 0), traces[i] + first, std::minus<float>());
    }
    SeismicDisplay* difference = _displaylist[last];
    difference->loadSeismicData(traces.data(), b->getTraceHeaders(), nTraces, true);
}

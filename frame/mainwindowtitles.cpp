/// Titles and drawing in the main window.
#include "frame/mainwindow.h"

#include "analysis/parmmenudialog.h"
#include "display/drawdialog.h"
#include "display/imagedialog.h"
#include "display/titles.h"
#include "widgets/bringup.h"

#include <QStatusBar>

void MainWindow::titleMenu()
{
    if (!_titleMenu) {
        _titleMenu = new Titles(this, &_displaylist, statusBar());
        connect(_titleMenu, &Titles::areaLineTitleWanted, this, &MainWindow::setAreaLineTitle);
    }
    bringUp(_titleMenu);
}

void MainWindow::drawMenu()
{
    if (!_drawMenu) {
        _drawMenu = new DrawDialog(this, [this] {
            QList<DrawTarget> targets;
            for (SeismicDisplay* display : qAsConst(_displaylist)) targets.append(displayTarget(display));
            return targets;
        });
    }
    bringUp(_drawMenu);
}

void MainWindow::hideMenus()
{
    for (QDialog* menu : std::initializer_list<QDialog*>{_parmmenu, _titleMenu, _drawMenu})
        if (menu) menu->hide();
    if (_parmmenu) _parmmenu->imageDialog()->endLoop();  // its button is gone
}

void MainWindow::setAreaLineNames(const QString& area, const QString& line, const QString& flow)
{
    _areaName = area;
    _lineName = line;
    _flowName = flow;
    setAreaLineTitle(_showAreaLine);
}

void MainWindow::setAreaLineTitle(bool show)
{
    _showAreaLine = show;
    const QString gap(10, ' '), smallGap(6, ' ');
    QString title = "Seismic Display" + gap;
    if (show && !_areaName.isEmpty()) {
        title += "Area: " + _areaName + smallGap + "Line: " + _lineName;
        if (!_flowName.isEmpty()) title += smallGap + "Flow: " + _flowName;
        title += gap;
    } else if (show && !_fileName.isEmpty()) {
        title += "File: " + _fileName + gap;
    }
    setWindowTitle(title);
}

#include "display/menus/colorstoptable.h"

#include <QColorDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>

static constexpr int colorColumn = 0;
static constexpr int percentColumn = 1;

ColorStopTable::ColorStopTable(QWidget* parent) : QTableWidget(0, 2, parent)
{
    setHorizontalHeaderLabels({"Color", "Percentage"});
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setTabKeyNavigation(false);
    connect(this, &QTableWidget::cellDoubleClicked, this, &ColorStopTable::editColor);
    connect(this, &QTableWidget::cellChanged, this, &ColorStopTable::colorNewStop);
}

void ColorStopTable::setColor(int row, QRgb color)
{
    const QSignalBlocker quiet(this);
    auto* cell = new QTableWidgetItem;
    const QColor shown = QColor::fromRgba(color);
    cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    cell->setData(Qt::UserRole, color);
    cell->setBackground(shown);
    cell->setForeground(qGray(color) > 128 ? Qt::black : Qt::white);
    cell->setText(shown.name());
    cell->setTextAlignment(Qt::AlignCenter);
    setItem(row, colorColumn, cell);
}

void ColorStopTable::setColorMap(const ColorMap& map, int nRows)
{
    _map = map;
    std::vector<ColorStop> shown;
    for (const ColorStop& stop : map.colorStops())
        if (shown.empty() || shown.back().position != stop.position || shown.back().color != stop.color)
            shown.push_back(stop);
    std::reverse(shown.begin(), shown.end());

    const QSignalBlocker quiet(this);
    clearContents();
    setRowCount(std::max(nRows, int(shown.size())));
    for (int row = 0; row < int(shown.size()); ++row) {
        setColor(row, shown[row].color);
        setItem(row, percentColumn, new QTableWidgetItem(QString::number(shown[row].position * 100.0, 'g', 6)));
    }
    scrollToTop();
}

void ColorStopTable::setRows(int nRows)
{
    int filled = 0;
    for (int row = 0; row < rowCount(); ++row)
        if (item(row, percentColumn) && !item(row, percentColumn)->text().isEmpty()) filled = row + 1;
    setRowCount(std::max(nRows, filled));
}

bool ColorStopTable::readPosition(int row, double* position) const
{
    const QTableWidgetItem* cell = item(row, percentColumn);
    if (!cell) return false;
    bool ok = false;
    *position = cell->text().trimmed().toDouble(&ok) / 100.0;
    return ok && *position >= 0.0 && *position <= 1.0;
}

std::vector<ColorStop> ColorStopTable::stops() const
{
    std::vector<ColorStop> found;
    double position = 0.0;
    for (int row = 0; row < rowCount(); ++row) {
        if (!readPosition(row, &position)) continue;
        const QTableWidgetItem* cell = item(row, colorColumn);
        found.push_back({position, cell ? cell->data(Qt::UserRole).toUInt() : qRgb(255, 255, 255)});
    }
    return found;
}

/// A stop typed into a blank row takes the color that the map has there, and so changes nothing at first.
void ColorStopTable::colorNewStop(int row, int column)
{
    double position = 0.0;
    if (column == percentColumn && !item(row, colorColumn) && readPosition(row, &position))
        setColor(row, _map.rgb(0.0, 1.0, position));
}

void ColorStopTable::editColor(int row, int column)
{
    if (column != colorColumn) return;
    const QTableWidgetItem* cell = item(row, colorColumn);
    const QRgb former = cell ? cell->data(Qt::UserRole).toUInt() : qRgb(255, 255, 255);
    const QColor chosen =
        QColorDialog::getColor(QColor::fromRgba(former), this, tr("Color"), QColorDialog::DontUseNativeDialog);
    if (chosen.isValid()) setColor(row, chosen.rgba());
}

void ColorStopTable::keyPressEvent(QKeyEvent* event)
{
    const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (opens && currentColumn() == colorColumn && currentRow() >= 0)
        editColor(currentRow(), currentColumn());
    else
        QTableWidget::keyPressEvent(event);
}

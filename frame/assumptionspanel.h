/// The panel "What was assumed", and the badge of the status bar that counts it.
#ifndef ASSUMPTIONSPANEL_H
#define ASSUMPTIONSPANEL_H

#include "sources/segyassumptions.h"

#include <QDockWidget>

class QPushButton;
class QToolButton;
class QTreeWidget;

/// A line for each thing that was taken for granted or skipped, in the order of their record, with the control that
/// changes it.
class AssumptionsPanel : public QDockWidget
{
    Q_OBJECT

public:
    explicit AssumptionsPanel(QWidget* parent = nullptr);

    /// Shows these in place of all; a line that only counts on stays chosen.
    void setAssumptions(const std::vector<SegyAssumption>& assumptions);
    int lineCount() const;
    /// All lines as text, a line each, with the control behind a tabulator.
    QString text() const;
    /// "n assumed", hidden at 0; a click shows the panel. Belongs to who takes it into a layout.
    QToolButton* badge() const { return _badge; }

public slots:
    /// Puts the lines on the clipboard: the chosen ones, or all where none is chosen.
    void copy();

private:
    void setBadge(const std::vector<SegyAssumption>& assumptions);

    QTreeWidget* _lines;  // children of the panel
    QPushButton* _copyButton;
    QToolButton* _badge;
};

#endif

/// The panel "What was assumed": what the program took for granted or skipped, and what changes it.
#ifndef ASSUMPTIONSPANEL_H
#define ASSUMPTIONSPANEL_H

#include <QDockWidget>
#include <QStringList>

class QPushButton;
class QTreeWidget;

/// A line for each thing, each text once, in the order of their coming. Fed with the lines that also go to
/// standard output.
class AssumptionsPanel : public QDockWidget
{
    Q_OBJECT

public:
    explicit AssumptionsPanel(QWidget* parent = nullptr);

    void addLine(const QString& line);
    /// The lines without their controls; setLines puts these in place of all.
    QStringList lines() const;
    void setLines(const QStringList& lines);
    int lineCount() const;
    /// All lines as text, a line each, with the control behind a tabulator.
    QString text() const;

public slots:
    /// Puts the lines on the clipboard: the chosen ones, or all where none is chosen.
    void copy();

private:
    QTreeWidget* _lines;      // children of the panel
    QPushButton* _copyButton;
};

/// Which control changes what a line tells of; empty where none does.
QString controlOfAssumption(const QString& line);

#endif

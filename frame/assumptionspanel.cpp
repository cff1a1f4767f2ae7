#include "frame/assumptionspanel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

/// Words of a line, and the control of the SEG-Y menu's Load tab that its rule hangs on. The first that
/// matches counts.
static const struct {
    const char* words;
    const char* control;
} controls[] = {
    {"coordinate scalar", "Apply coordinate scalar?"},
    {"depth/elev scalar", "Apply depth/elev scalar?"},
    {"format code", "Data sample format:"},
    {"no. of samples", "Num samples per trace:"},
    {"sample rate", "Input sample rate:"},
    {"cut by the end", "Num samples per trace:"},
    {"empty offset", "Re-map Table"},
    {"trace id", "Re-map Table"},
};

QString controlOfAssumption(const QString& line)
{
    for (const auto& row : controls)
        if (line.contains(row.words)) return row.control;
    return QString();
}

AssumptionsPanel::AssumptionsPanel(QWidget* parent)
    : QDockWidget("What was assumed", parent), _lines(new QTreeWidget), _copyButton(new QPushButton("&Copy"))
{
    setObjectName("AssumptionsPanel");
    _lines->setObjectName("lines");
    _lines->setHeaderLabels({"What was taken for granted or skipped", "Control that changes it"});
    _lines->setRootIsDecorated(false);
    _lines->setAlternatingRowColors(true);
    _lines->setSelectionMode(QAbstractItemView::ExtendedSelection);
    _lines->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    _lines->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    _lines->header()->setStretchLastSection(false);
    _copyButton->setObjectName("copyButton");
    _copyButton->setToolTip("Put the chosen lines, or all, on the clipboard");
    connect(_copyButton, &QPushButton::clicked, this, &AssumptionsPanel::copy);

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(_lines);
    layout->addWidget(_copyButton, 0, Qt::AlignRight);
    setWidget(content);
}

void AssumptionsPanel::addLine(const QString& line)
{
    const QString text = line.trimmed();
    if (text.isEmpty() || !_lines->findItems(text, Qt::MatchExactly).isEmpty()) return;
    auto* item = new QTreeWidgetItem(_lines, {text, controlOfAssumption(text)});
    item->setToolTip(0, text);
}

QStringList AssumptionsPanel::lines() const
{
    QStringList lines;
    for (int i = 0; i < lineCount(); ++i) lines.append(_lines->topLevelItem(i)->text(0));
    return lines;
}

void AssumptionsPanel::setLines(const QStringList& lines)
{
    _lines->clear();
    for (const QString& line : lines) addLine(line);
}

int AssumptionsPanel::lineCount() const
{
    return _lines->topLevelItemCount();
}

static QString textOf(const QTreeWidgetItem* item)
{
    return item->text(1).isEmpty() ? item->text(0) : item->text(0) + "\t" + item->text(1);
}

QString AssumptionsPanel::text() const
{
    QStringList lines;
    for (int i = 0; i < lineCount(); ++i) lines.append(textOf(_lines->topLevelItem(i)));
    return lines.join("\n");
}

void AssumptionsPanel::copy()
{
    QStringList chosen;
    for (int i = 0; i < lineCount(); ++i)
        if (_lines->topLevelItem(i)->isSelected()) chosen.append(textOf(_lines->topLevelItem(i)));
    QGuiApplication::clipboard()->setText(chosen.isEmpty() ? text() : chosen.join("\n"));
}

#include "frame/assumptionspanel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

AssumptionsPanel::AssumptionsPanel(QWidget* parent)
    : QDockWidget("What was assumed", parent), _lines(new QTreeWidget), _copyButton(new QPushButton("&Copy")),
      _badge(new QToolButton)
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

    _badge->setObjectName("assumedBadge");
    _badge->setAutoRaise(true);
    _badge->hide();
    connect(_badge, &QToolButton::clicked, this, [this] {
        show();
        raise();
    });

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(_lines);
    layout->addWidget(_copyButton, 0, Qt::AlignRight);
    setWidget(content);
}

/// What the status bar says of a thing stands in front, so that it is found again.
static QString lineOf(const SegyAssumption& assumption)
{
    const std::string remark = assumption.remark();
    return QString::fromStdString((remark.empty() ? remark : remark + ": ") + assumption.text());
}

void AssumptionsPanel::setAssumptions(const std::vector<SegyAssumption>& assumptions)
{
    const int n = int(assumptions.size());
    while (lineCount() > n) delete _lines->takeTopLevelItem(lineCount() - 1);
    while (lineCount() < n) new QTreeWidgetItem(_lines);
    for (int i = 0; i < n; ++i) {
        QTreeWidgetItem* item = _lines->topLevelItem(i);
        const SegyAssumption& assumption = assumptions[size_t(i)];
        item->setText(0, lineOf(assumption));
        item->setToolTip(0, item->text(0));
        item->setText(1, *assumption.control ? assumption.control : "none");
    }
    setBadge(assumptions);
}

void AssumptionsPanel::setBadge(const std::vector<SegyAssumption>& assumptions)
{
    QStringList remarks, names;
    for (const SegyAssumption& assumption : assumptions) {
        names += QString::fromStdString(assumption.name);
        if (!assumption.remark().empty()) remarks += QString::fromStdString(assumption.remark());
    }
    QString text = QString("%1 assumed").arg(assumptions.size());
    if (!remarks.isEmpty()) text += ": " + remarks.join(", ");
    _badge->setText(text);
    _badge->setToolTip("Taken for granted or skipped in this file:\n" + names.join("\n"));
    _badge->setVisible(!assumptions.empty());
}

int AssumptionsPanel::lineCount() const
{
    return _lines->topLevelItemCount();
}

static QString textOf(const QTreeWidgetItem* item)
{
    return item->text(0) + "\t" + item->text(1);
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

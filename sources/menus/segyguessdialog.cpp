#include "sources/menus/segyguessdialog.h"

#include "sources/segyguesssettings.h"
#include "widgets/returnkey.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

constexpr int nSettingRows = 14;

static QString text(const std::string& words)
{
    return QString::fromUtf8(words.data(), int(words.size()));
}

SegyGuessDialog::SegyGuessDialog(QWidget* parent) : QDialog(parent)
{
    setObjectName("SegyGuessDialog");
    setWindowTitle(tr("Guess Settings"));
    _summaryLabel = new QLabel;
    _summaryLabel->setObjectName("summaryLabel");
    _summaryLabel->setWordWrap(true);
    _summaryLabel->setTextFormat(Qt::PlainText);
    _summaryLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    _factTable = makeTable("factTable", {tr("Fact"), tr("Evidence"), tr("Choice")});
    _factTable->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    _factTable->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    _settingTable = makeTable("settingTable", {tr("Setting"), tr("Before"), tr("Now")});
    _settingTable->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    auto* buttonBox = new QDialogButtonBox;
    buttonBox->setObjectName("buttonBox");
    _copyButton = addButton(buttonBox, tr("&Copy"), "copyButton",
                            tr("Copy the selected cells, or everything, as text with tabs"));
    _restoreButton =
        addButton(buttonBox, tr("&Restore"), "restoreButton", tr("Bring the settings before the guess back"));
    _dismissButton =
        addButton(buttonBox, tr("&Dismiss"), "dismissButton", tr("Close the panel; the settings stay as they are now"));
    connect(_copyButton, &QPushButton::clicked, this, &SegyGuessDialog::copy);
    connect(_restoreButton, &QPushButton::clicked, this, &SegyGuessDialog::restore);
    connect(_dismissButton, &QPushButton::clicked, this, &SegyGuessDialog::reject);
    new ReturnKey(this, _dismissButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_summaryLabel);
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setObjectName("splitter");
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(_factTable);
    splitter->addWidget(_settingTable);
    splitter->setStretchFactor(0, 1);
    layout->addWidget(splitter, 1);
    layout->addWidget(buttonBox);
    const QSize most =
        screen() ? screen()->availableGeometry().size() * 4 / 5 : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    resize(QSize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 58).boundedTo(most));
    // All settings in view where the facts still have the larger part.
    const int settingsHeight = std::min((fontMetrics().height() + 6) * (nSettingRows + 1), height() * 2 / 5);
    splitter->setSizes({height() - settingsHeight, settingsHeight});
}

QTableWidget* SegyGuessDialog::makeTable(const char* name, const QStringList& titles)
{
    auto* table = new QTableWidget(0, titles.size());
    table->setObjectName(name);
    table->setHorizontalHeaderLabels(titles);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setWordWrap(true);
    table->setTabKeyNavigation(false);
    table->installEventFilter(this);
    return table;
}

QPushButton* SegyGuessDialog::addButton(QDialogButtonBox* box, const QString& text, const char* name,
                                        const QString& tip)
{
    QPushButton* button = box->addButton(text, QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

static void setCell(QTableWidget* table, int row, int column, const std::string& words, bool isBold = false)
{
    auto* item = new QTableWidgetItem(text(words));
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
    QFont font = item->font();
    font.setBold(isBold);
    item->setFont(font);
    table->setItem(row, column, item);
}

void SegyGuessDialog::fillFacts(const SegyGuess& guess)
{
    _factTable->clearContents();
    _factTable->setRowCount(int(guess.facts.size()));
    for (int row = 0; row < _factTable->rowCount(); ++row) {
        const SegyGuessFact& fact = guess.facts[size_t(row)];
        setCell(_factTable, row, 0, fact.what);
        setCell(_factTable, row, 1, fact.evidence);
        setCell(_factTable, row, 2, fact.choice);
    }
}

void SegyGuessDialog::fillSettings(const SegyGuess& guess, const SegyLoadParm& before)
{
    const std::vector<SegySettingText> old = segySettingTexts(before), now = segySettingTexts(guess.parm);
    _settingTable->clearContents();
    _settingTable->setRowCount(int(now.size()));
    for (int row = 0; row < _settingTable->rowCount(); ++row) {
        const size_t i = size_t(row);
        const bool isChanged = old[i].value != now[i].value;
        setCell(_settingTable, row, 0, now[i].label, isChanged);
        setCell(_settingTable, row, 1, old[i].value, isChanged);
        setCell(_settingTable, row, 2, now[i].value, isChanged);
    }
}

void SegyGuessDialog::setGuess(const QString& file, const SegyGuess& guess, const SegyLoadParm& before, bool isSet)
{
    _summaryLabel->setText(file + "\n" + text(guess.summary));
    fillFacts(guess);
    fillSettings(guess, before);
    const bool isRead = guess.verdict == SegyGuess::Read;
    _settingTable->setVisible(isRead);
    _settingTable->setHorizontalHeaderLabels(
        {tr("Setting"), isSet ? tr("Before") : tr("In force"), isSet ? tr("Now") : tr("Guessed")});
    _restoreButton->setVisible(isSet);
    _restoreButton->setEnabled(isRead);
    _restoreButton->setText(tr("&Restore"));
    _text = text(segyGuessText(file.toStdString(), guess, before));
}

void SegyGuessDialog::copy()
{
    for (const QTableWidget* table : {_factTable, _settingTable}) {
        QModelIndexList cells = table->selectionModel()->selectedIndexes();
        if (cells.isEmpty()) continue;
        std::sort(cells.begin(), cells.end());
        QString words;
        for (int i = 0; i < cells.size(); ++i) {
            if (i > 0) words += cells[i].row() == cells[i - 1].row() ? '\t' : '\n';
            words += cells[i].data().toString();
        }
        QApplication::clipboard()->setText(words);
        return;
    }
    QApplication::clipboard()->setText(_text);
}

void SegyGuessDialog::restore()
{
    _restoreButton->setEnabled(false);
    _restoreButton->setText(tr("Restored"));
    emit restoreAsked();
}

void SegyGuessDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        copy();
    else
        QDialog::keyPressEvent(event);
}

/// A table copies its current cell only; here all that is selected counts. What is selected in one table is
/// not in the other.
bool SegyGuessDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    if (event->type() == QEvent::FocusIn)
        for (QTableWidget* table : {_factTable, _settingTable})
            if (table != watched) table->clearSelection();
    return QDialog::eventFilter(watched, event);
}

#include "sources/menus/segyvaryingview.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

SegyVaryingView::SegyVaryingView(QWidget* parent) : QWidget(parent)
{
    setObjectName("segyvaryingview");
    _aboutLabel = new QLabel;
    _aboutLabel->setObjectName("aboutLabel");
    _aboutLabel->setWordWrap(true);
    const QStringList titles = {tr("Byte"),      tr("Width"),  tr("Standard field"),
                                tr("Behaviour"), tr("Values"), tr("Evidence")};
    _varyingTable = new QTableWidget(0, titles.size());
    _varyingTable->setObjectName("varyingTable");
    _varyingTable->setToolTip(tr("Words of the trace header by how they behave over the file; bytes count from 1"));
    _varyingTable->setHorizontalHeaderLabels(titles);
    _varyingTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    _varyingTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    _varyingTable->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    _varyingTable->verticalHeader()->hide();
    _varyingTable->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    _varyingTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    _varyingTable->setSelectionMode(QAbstractItemView::SingleSelection);
    _varyingTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    _varyingTable->setTabKeyNavigation(false);
    _varyingTable->setWordWrap(false);
    _wordBox = new QComboBox;
    _wordBox->setObjectName("wordBox");
    _wordBox->setToolTip(tr("The header word that takes the selected bytes"));
    _takeButton = new QPushButton(tr("Take Re-map Row"));
    _takeButton->setObjectName("takeButton");
    _takeButton->setToolTip(
        tr("Put a row into the remap table, so that the header word is read from the selected bytes"));
    _takeButton->setAutoDefault(false);
    _takeButton->setEnabled(false);
    _answerLabel = new QLabel;
    _answerLabel->setObjectName("answerLabel");
    _answerLabel->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Selected bytes into:")));
    row->addWidget(_wordBox);
    row->addWidget(_takeButton);
    row->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_aboutLabel);
    layout->addWidget(_varyingTable);
    layout->addLayout(row);
    layout->addWidget(_answerLabel);
    connect(_varyingTable, &QTableWidget::itemSelectionChanged, this, &SegyVaryingView::changeRow);
    connect(_takeButton, &QPushButton::clicked, this, &SegyVaryingView::takeRow);
}

void SegyVaryingView::setWords(const QStringList& names)
{
    const QString present = _wordBox->currentText();
    _wordBox->clear();
    for (const QString& name : names) _wordBox->addItem(name.trimmed());
    _wordBox->setCurrentText(present);
}

void SegyVaryingView::setRanking(const std::vector<SegyVaryingWord>& ranking, const QString& about)
{
    _ranking = ranking;
    _aboutLabel->setText(about);
    _answerLabel->clear();
    _varyingTable->clearContents();
    _varyingTable->setRowCount(int(ranking.size()));
    for (int row = 0; row < int(ranking.size()); ++row) {
        const SegyVaryingWord& word = ranking[size_t(row)];
        const QString range =
            word.least == word.most ? QString::number(word.least) : tr("%1 to %2").arg(word.least).arg(word.most);
        const QString texts[] = {QString::number(word.byte),
                                 QString::number(word.width),
                                 tr(word.field),
                                 tr(segyBehaviourName(word.behaviour)),
                                 range,
                                 QString::fromStdString(word.evidence)};
        for (int column = 0; column < _varyingTable->columnCount(); ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            item->setTextAlignment((column < 2 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
            item->setToolTip(texts[column]);
            _varyingTable->setItem(row, column, item);
        }
    }
    _varyingTable->scrollToTop();
    changeRow();
}

void SegyVaryingView::showAnswer(const QString& answer)
{
    _answerLabel->setText(answer);
}

/// Which word a byte most likely belongs into; the user has the last say.
static const char* likelyWord(const SegyVaryingWord& word)
{
    switch (word.behaviour) {
    case SegyBehaviour::RepeatsByEnsemble: return "FFID";
    case SegyBehaviour::CountsUp: return "CHAN";
    case SegyBehaviour::Coordinates: return "SOU_X";
    default: return nullptr;
    }
}

void SegyVaryingView::changeRow()
{
    const bool isSelected = !_varyingTable->selectedItems().isEmpty();
    const int row = _varyingTable->currentRow();
    _takeButton->setEnabled(isSelected && row >= 0 && _wordBox->count() > 0);
    if (!_takeButton->isEnabled()) return;
    if (const char* likely = likelyWord(_ranking[size_t(row)])) _wordBox->setCurrentText(likely);
}

void SegyVaryingView::takeRow()
{
    const int row = _varyingTable->currentRow();
    if (row < 0 || row >= int(_ranking.size())) return;
    const SegyVaryingWord& word = _ranking[size_t(row)];
    emit rowTaken(_wordBox->currentText(), word.width == 2 ? "2I" : "4I", word.byte);
}

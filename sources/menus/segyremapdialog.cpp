#include "sources/menus/segyremapdialog.h"

#include "host/home.h"
#include "sources/segyheader.h"
#include "widgets/returnkey.h"
#include "widgets/wholefile.h"

#include <QApplication>
#include <QBrush>
#include <QColor>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

/// Edits a header word: a list of them all, into which another name can be typed.
class HeaderWordDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        auto* box = new QComboBox(parent);
        box->setObjectName("headerWordBox");
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
        const SegyHeader header;
        for (const QString& row : header.headerNames()) {
            box->addItem(row.section('|', 0, 0).trimmed());
            box->setItemData(box->count() - 1, row.section('|', 4, 4), Qt::ToolTipRole);
        }
        auto* self = const_cast<HeaderWordDelegate*>(this);
        const auto commit = [self, box] {
            emit self->commitData(box);
            emit self->closeEditor(box);
        };
        connect(box, &QComboBox::textActivated, self, commit);
        connect(box->lineEdit(), &QLineEdit::returnPressed, self, commit);
        return box;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        auto* box = static_cast<QComboBox*>(editor);
        box->setCurrentIndex(box->findText(index.data().toString().trimmed(), Qt::MatchFixedString));
        box->setEditText(index.data().toString());
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        model->setData(index, static_cast<QComboBox*>(editor)->currentText());
    }
};

SegyRemapDialog::SegyRemapDialog(QWidget* parent) : QDialog(parent)
{
    setObjectName("SegyRemapDialog");
    setWindowTitle(tr("Segy Remap Table"));
    _tableWidget = new QTableWidget(SegyRemapTable::nRows, SegyRemapTable::nColumns, this);
    _tableWidget->setObjectName("tableWidget");
    _tableWidget->setHorizontalHeaderLabels({tr("Trevia\nHeader"), tr("Format\n(1I,2I,4I,\n4R,8R,Axx)"),
                                             tr("Type\n(IEEE,IBM)"), tr("Start Byte\n(1-240)")});
    _tableWidget->setTabKeyNavigation(false);  // Tab goes on to the buttons; the arrows go from cell to cell
    _tableWidget->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    _tableWidget->setItemDelegateForColumn(SegyRemapTable::HeaderWord, new HeaderWordDelegate(_tableWidget));

    auto* buttonBox = new QDialogButtonBox(this);
    buttonBox->setObjectName("buttonBox");
    _loadButton = buttonBox->addButton(tr("&Load From File"), QDialogButtonBox::ActionRole);
    _saveButton = buttonBox->addButton(tr("&Save To File"), QDialogButtonBox::ActionRole);
    _dismissButton = buttonBox->addButton(tr("&Dismiss"), QDialogButtonBox::RejectRole);
    _loadButton->setObjectName("loadButton");
    _saveButton->setObjectName("saveButton");
    _dismissButton->setObjectName("dismissButton");
    // Return ends the edit of a cell; it must not open a file dialog.
    for (QPushButton* button : {_loadButton, _saveButton, _dismissButton}) button->setAutoDefault(false);
    new ReturnKey(this, _dismissButton);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_tableWidget);
    layout->addWidget(buttonBox);
    // Four columns and ten rows, whatever the font.
    resize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 24);

    connect(_loadButton, &QPushButton::clicked, this, &SegyRemapDialog::loadFromFile);
    connect(_saveButton, &QPushButton::clicked, this, &SegyRemapDialog::saveToFile);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &SegyRemapDialog::reject);
    connect(_tableWidget, &QTableWidget::itemChanged, this, [this] {
        if (_isFilling) return;
        markFaults();
        emit tableChanged();
    });
}

QString SegyRemapDialog::remapFolder()
{
    return QString::fromLocal8Bit(GetHome()) + "/port/db/segy/";
}

SegyRemapDialog::~SegyRemapDialog()
{
    // A cell that is being edited commits its text when the table goes, which is after this object's own part.
    _tableWidget->disconnect(this);
}

SegyRemapTable SegyRemapDialog::table() const
{
    SegyRemapTable snapshot;
    for (int row = 0; row < SegyRemapTable::nRows; ++row)
        for (int column = 0; column < SegyRemapTable::nColumns; ++column)
            if (const QTableWidgetItem* item = _tableWidget->item(row, column))
                snapshot.cells[size_t(row)][size_t(column)] = item->text();
    return snapshot;
}

void SegyRemapDialog::setTable(const SegyRemapTable& table)
{
    _isFilling = true;
    for (int row = 0; row < SegyRemapTable::nRows; ++row)
        for (int column = 0; column < SegyRemapTable::nColumns; ++column) {
            if (!_tableWidget->item(row, column)) _tableWidget->setItem(row, column, new QTableWidgetItem);
            _tableWidget->item(row, column)->setText(table.cells[size_t(row)][size_t(column)]);
        }
    _isFilling = false;
    markFaults();
    emit tableChanged();
}

/// Rows that are skipped, or do another thing than they say, stand in red and tell why.
void SegyRemapDialog::markFaults()
{
    _isFilling = true;
    SegyHeader header;
    header.setTreviaVersion(1);
    const SegyRemapTable snapshot = table();
    for (int row = 0; row < SegyRemapTable::nRows; ++row) {
        const QString fault = header.remapRowFault(snapshot, row);
        for (int column = 0; column < SegyRemapTable::nColumns; ++column) {
            QTableWidgetItem* item = _tableWidget->item(row, column);
            if (!item && fault.isEmpty()) continue;
            if (!item) _tableWidget->setItem(row, column, item = new QTableWidgetItem);
            item->setData(Qt::ForegroundRole, fault.isEmpty() ? QVariant() : QVariant(QBrush(Qt::red)));
            item->setData(Qt::BackgroundRole, fault.isEmpty() ? QVariant() : QVariant(QBrush(QColor(255, 225, 225))));
            item->setToolTip(fault);
        }
    }
    _isFilling = false;
}

bool SegyRemapDialog::loadTable(const QString& path)
{
    SegyRemapTable loaded;
    QString error;
    if (!readRemapFile(path, &loaded, &error)) {
        QMessageBox::warning(this, tr("Remap Table"), tr("Cannot read file %1:\n%2.").arg(path, error));
        return false;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    setTable(loaded);
    QApplication::restoreOverrideCursor();
    return true;
}

bool SegyRemapDialog::saveTable(const QString& path)
{
    QString error;
    if (writeRemapFile(path, table(), &error)) {
        WrittenFiles::all()->tell(path);
        return true;
    }
    QMessageBox::warning(this, tr("Remap Table"), tr("Cannot write file %1:\n%2.").arg(path, error));
    return false;
}

void SegyRemapDialog::loadFromFile()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Load Remap File"), remapFolder());
    if (!path.isEmpty()) loadTable(path);
}

void SegyRemapDialog::saveToFile()
{
    const QString path = QFileDialog::getSaveFileName(this, tr("Save Remap File"), remapFolder());
    if (!path.isEmpty()) saveTable(path);
}

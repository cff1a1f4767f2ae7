#include "frame/recordlist.h"

#include "widgets/appsettings.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QUrl>
#include <QVBoxLayout>

void RecordModel::setRows(const QString& keyName, std::vector<RecordRow> rows, const QSet<int>& marks)
{
    beginResetModel();
    _keyName = keyName;
    _rows = std::move(rows);
    _marks = marks;
    endResetModel();
}

int RecordModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(_rows.size());
}

int RecordModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : nColumns;
}

QVariant RecordModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) return QVariant();
    const RecordRow& row = _rows[size_t(index.row())];
    if (index.column() == Mark)
        return role == Qt::CheckStateRole ? QVariant(_marks.contains(row.value) ? Qt::Checked : Qt::Unchecked)
                                          : QVariant();
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return QVariant();
    return index.column() == Value ? row.value : row.traces;
}

bool RecordModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() != Mark || role != Qt::CheckStateRole)
        return false;
    const int key = _rows[size_t(index.row())].value;
    if (value.toInt() == Qt::Checked)
        _marks.insert(key);
    else
        _marks.remove(key);
    emit dataChanged(index, index, {role});
    emit marksChanged();
    return true;
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole) return QVariant();
    if (orientation == Qt::Vertical) return section + 1;
    return section == Value ? _keyName : section == Traces ? tr("Traces") : tr("Mark");
}

Qt::ItemFlags RecordModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() == Mark ? plain | Qt::ItemIsUserCheckable : plain;
}

RecordList::RecordList(QWidget* parent)
    : QDockWidget(tr("Records"), parent), _model(new RecordModel(this)), _table(new QTableView),
      _emptyLabel(new QLabel(tr("The list needs an index:\npress \"Build Now\" in the SEGY Menu.")))
{
    setObjectName("RecordList");
    _table->setObjectName("table");
    _table->setModel(_model);
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setSelectionMode(QAbstractItemView::SingleSelection);
    _table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    _table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    _emptyLabel->setObjectName("emptyLabel");
    _emptyLabel->setAlignment(Qt::AlignCenter);
    _emptyLabel->setWordWrap(true);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(_table);
    layout->addWidget(_emptyLabel);
    setWidget(content);
    // A click on a box sets a mark, and leaves the picture alone.
    connect(_table, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() != RecordModel::Mark) emit recordChosen(index.row());
    });
    connect(_table, &QTableView::activated, this, [this](const QModelIndex& index) { emit recordChosen(index.row()); });
    connect(_model, &RecordModel::marksChanged, this, &RecordList::keepMarks);
    setRecords(QString(), QString(), {});
}

void RecordList::setRecords(const QString& file, const QString& keyName, std::vector<RecordRow> rows)
{
    _marksKey = QString(SettingsKey::marks) + "/" + QString::fromLatin1(QUrl::toPercentEncoding(file + "|" + keyName));
    QSet<int> marks;
    for (const QString& value : AppSettings().value(_marksKey).toStringList()) marks.insert(value.toInt());
    _table->setVisible(!rows.empty());
    _emptyLabel->setVisible(rows.empty());
    _model->setRows(keyName, std::move(rows), marks);
}

void RecordList::setCurrent(int entry)
{
    if (entry < 0 || entry >= _model->rowCount()) return;
    _table->setCurrentIndex(_model->index(entry, RecordModel::Value));
}

void RecordList::keepMarks() const
{
    QStringList values;
    for (const int value : _model->marks()) values.append(QString::number(value));
    values.sort();
    AppSettings settings;
    if (values.isEmpty())
        settings.remove(_marksKey);
    else
        settings.setValue(_marksKey, values);
}

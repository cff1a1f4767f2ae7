/// The panel "Records": all ensembles of the file in their sort, with marks.
#ifndef RECORDLIST_H
#define RECORDLIST_H

#include <QAbstractTableModel>
#include <QDockWidget>
#include <QSet>

#include <vector>

class QLabel;
class QTableView;

/// One ensemble of the list.
struct RecordRow {
    int value = 0;  ///< of the primary key
    int traces = 0;
};

/// Rows of value, traces and mark. A mark belongs to a value, wherever it stands.
class RecordModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Value, Traces, Mark, nColumns };
    using QAbstractTableModel::QAbstractTableModel;

    void setRows(const QString& keyName, std::vector<RecordRow> rows, const QSet<int>& marks);
    const QSet<int>& marks() const { return _marks; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void marksChanged();

private:
    QString _keyName;
    std::vector<RecordRow> _rows;
    QSet<int> _marks;
};

/// Shows the list and keeps the marks from session to session, for each file and key. Loads nothing by itself.
class RecordList : public QDockWidget
{
    Q_OBJECT

public:
    explicit RecordList(QWidget* parent = nullptr);

    /// Takes the list of a file; without rows it says that it needs an index.
    void setRecords(const QString& file, const QString& keyName, std::vector<RecordRow> rows);
    /// Marks the ensemble that is on the screen, counted from 0.
    void setCurrent(int entry);

signals:
    /// The user wants this ensemble, counted from 0.
    void recordChosen(int entry);

private:
    void keepMarks() const;

    RecordModel* _model;
    QTableView* _table;
    QLabel* _emptyLabel;
    QString _marksKey;  // in the settings
};

#endif

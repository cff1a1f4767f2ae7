/// The editor of the remap table.
#ifndef SEGYREMAPDIALOG_H
#define SEGYREMAPDIALOG_H

#include "sources/segyremaptable.h"

#include <QDialog>

class QPushButton;
class QTableWidget;

/// Edits a SegyRemapTable, and loads and saves remap files. Knows no loader: who shows it takes a snapshot.
/// Closing only hides it; the table stays.
class SegyRemapDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SegyRemapDialog(QWidget* parent = nullptr);
    ~SegyRemapDialog() override;

    /// The cells as they stand, for a loader on any thread.
    SegyRemapTable table() const;
    void setTable(const SegyRemapTable& table);

    /// Fills the rows from a file. On failure a box, and the table stays. Returns whether it was read.
    bool loadTable(const QString& path);
    /// Writes the filled rows to a file. On failure a box. Returns whether they were written.
    bool saveTable(const QString& path);

    /// Where remap files lie.
    static QString remapFolder();

signals:
    /// A cell was edited, or a file loaded.
    void tableChanged();

private slots:
    void loadFromFile();
    void saveToFile();

private:
    void markFaults();

    QTableWidget* _tableWidget;  // child of the dialog
    QPushButton* _loadButton;    // children of the button box
    QPushButton* _saveButton;
    QPushButton* _dismissButton;
    bool _isFilling = false;  // one signal for a whole table
};

#endif

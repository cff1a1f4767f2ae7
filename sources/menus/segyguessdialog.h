/// What was found out about a SEG-Y file, and what it has set.
#ifndef SEGYGUESSDIALOG_H
#define SEGYGUESSDIALOG_H

#include "sources/segyguess.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

/// Shows a guess: a table of facts and one of the settings before and now. Sets nothing by itself: who shows
/// it hears restoreAsked. Closing only hides it.
class SegyGuessDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SegyGuessDialog(QWidget* parent = nullptr);
    /// @param before  the settings that "Restore" brings back
    /// @param isSet   the guess is in force; else it is only told, and there is nothing to restore
    void setGuess(const QString& file, const SegyGuess& guess, const SegyLoadParm& before, bool isSet = true);

signals:
    void restoreAsked();

public slots:
    /// The selected cells, or where none are selected everything, with tabs between columns.
    void copy();
    void restore();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTableWidget* makeTable(const char* name, const QStringList& titles);
    QPushButton* addButton(class QDialogButtonBox* box, const QString& text, const char* name, const QString& tip);
    void fillFacts(const SegyGuess& guess);
    void fillSettings(const SegyGuess& guess, const SegyLoadParm& before);

    QLabel* _summaryLabel;
    QTableWidget* _factTable;  // children of the dialog
    QTableWidget* _settingTable;
    QPushButton *_copyButton, *_restoreButton, *_dismissButton;
    QString _text;  // all of it, for the clipboard
};

#endif

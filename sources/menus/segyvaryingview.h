/// The ranking of header bytes, from which a remap row is taken.
#ifndef SEGYVARYINGVIEW_H
#define SEGYVARYINGVIEW_H

#include "sources/segyvarying.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

/// Shows a ranking; a press of the button offers the selected word as a remap row. Knows no file and no
/// table.
class SegyVaryingView : public QWidget
{
    Q_OBJECT

public:
    explicit SegyVaryingView(QWidget* parent = nullptr);
    /// Fills the words that a row can go into. @param names  padded with blanks or not
    void setWords(const QStringList& names);
    void setRanking(const std::vector<SegyVaryingWord>& ranking, const QString& about);
    /// What became of the row that was taken.
    void showAnswer(const QString& answer);

signals:
    /// @param startByte  from 1
    void rowTaken(const QString& word, const QString& format, int startByte);

private slots:
    void changeRow();
    void takeRow();

private:
    std::vector<SegyVaryingWord> _ranking;
    QLabel* _aboutLabel;
    QTableWidget* _varyingTable;
    QComboBox* _wordBox;
    QPushButton* _takeButton;
    QLabel* _answerLabel;
};

#endif

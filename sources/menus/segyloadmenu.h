/// The tab that says which SEG-Y files to open, and how to read them.
#ifndef SEGYLOADMENU_H
#define SEGYLOADMENU_H

#include "sources/segyloadparm.h"
#include "sources/segyremaptable.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class SegyGuessDialog;
class SegyLoader;
class SegyMenuHost;
class SegyRemapDialog;

/// Shows and gives a SegyLoadParm; empty number fields are 0, "from the reel". Besides, it starts the background
/// build of the index, edits the remap table and guesses the settings of a file. The host is lent and outlives it.
class SegyLoadMenu : public QWidget
{
    Q_OBJECT

public:
    explicit SegyLoadMenu(SegyMenuHost* host, QWidget* parent = nullptr);

    void setParm(const SegyLoadParm& parm);
    /// What the fields say, as they were last found right.
    SegyLoadParm parm() const;
    /// A snapshot of the remap table; empty when it was never shown.
    SegyRemapTable remapTable() const;
    /// Checks what is still being typed, and that a file is named. False after a box.
    bool checkFields();
    /// A file is on the screen: the index may be built.
    void newLoader(SegyLoader* loader);

    /// Puts a row into the remap table, in place of one for the same header word, else as its last one, and
    /// switches remapping on. Returns its number from 1; 0 when the table is full and stays as it is.
    int takeRemapRow(const QString& word, const QString& format, int startByte);

public slots:
    void changeFiles();
    /// Looks at the file named and fills the fields with what was found; a panel says why. What can't be read, or
    /// be followed by the reader, leaves the fields as they are.
    void guessSettings();
    /// Brings the fields back that the last guess has changed.
    void restoreSettings();
    void changeBuildIndex(int index);
    void buildIndexNow();
    void threadFinished();
    void changeRemap(int state);
    void changeRemapTable();

private slots:
    void changeMaxTraces() { checkCount(_maxVal, &_maxText, tr("The number of traces")); }
    void changeSamples() { checkCount(_nsampVal, &_nsampText, tr("The number of samples")); }
    void changeRate() { checkRate(); }
    void changeFirstTrace() { checkFirstTrace(); }
    void changeHeaderLength() { checkHeaderLength(); }

private:
    void makeFileRow(QGridLayout* grid);
    void makeCombos(QGridLayout* grid);
    void makeNumbers(QGridLayout* grid);
    void makeIndexRow(QGridLayout* grid);
    void makeRemapRow(QGridLayout* grid);
    void makeGuessRow(QGridLayout* grid);
    void makeLayoutGroup(QGridLayout* grid);
    void makeRemapDialog();
    void orderTabs();
    QComboBox* addCombo(QGridLayout* grid, const QString& label, const char* name, const QStringList& values,
                        const QString& tip);
    QLineEdit* addNumber(QGridLayout* grid, const QString& label, const char* name, const QString& unit,
                         const QString& tip);
    bool checkCount(QLineEdit* edit, QString* kept, const QString& what);
    bool checkRate();
    bool checkFirstTrace();
    bool checkHeaderLength();
    bool checkPlace(QLineEdit* edit, QString* kept, const QString& what, int least, int most);
    bool refuse(QLineEdit* edit, const QString& kept, const QString& text);

    SegyMenuHost* _host;
    QLineEdit* _fileField;
    QPushButton* _browseButton;
    QComboBox *_sortBox, *_typeBox, *_formatBox;
    QLineEdit *_maxVal, *_nsampVal, *_srateVal;
    QComboBox *_variBox, *_coorBox, *_elevBox, *_indexBox;
    QPushButton* _buttonBuild;
    QLabel* _buildLabel;
    QGroupBox* _layoutGroup;
    QLineEdit *_firstTraceVal, *_headerVal;
    QComboBox *_layoutFormatBox, *_orderBox;
    QCheckBox* _remapBox;
    QPushButton* _remapButton;
    QPushButton* _guessButton;
    SegyGuessDialog* _guessDialog = nullptr;  // child, made at the first guess
    SegyLoadParm _beforeGuess;
    SegyRemapDialog* _smt = nullptr;  // child, made when the table is first asked for
    QString _homePath;
    int _buildIndex = 0;
    QString _maxText, _nsampText, _srateText, _firstTraceText, _headerText;  // the texts last found right
};

#endif

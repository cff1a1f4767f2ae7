/// The tab of the text header.
#ifndef SEGYEBCDICMENU_H
#define SEGYEBCDICMENU_H

#include <QPointer>
#include <QWidget>

class QPlainTextEdit;
class SegyLoader;

/// Shows the 40 lines of the reel's text, lets them be edited, and reads and writes text files. Never changes the
/// reel. The loader is lent and may go at any time.
class SegyEbcdicMenu : public QWidget
{
    Q_OBJECT

public:
    explicit SegyEbcdicMenu(QWidget* parent = nullptr);
    void newLoader(SegyLoader* loader);
    bool isReadOnly() const { return _readOnly; }
    /// The text is the user's, typed or loaded, and not the reel's.
    bool isEdited() const;

    /// The editor takes a file's whole text. False after a box, and the text stays.
    bool loadText(const QString& path);
    /// Writes the editor's text; a failed write keeps the old file. False after a box.
    bool saveText(const QString& path);

public slots:
    void loadEbcdic();
    void loadNewEbcdic();
    void saveEbcdic();
    /// Toggles between looking and editing.
    void setReadWriteState();

private:
    QPointer<SegyLoader> _segyloader;
    QPlainTextEdit* _textEdit;
    bool _readOnly = true;
};

/// The text header as 40 lines of 80 characters; what is missing and what can't be shown are blanks.
QString segyTextLines(const QByteArray& text);

#endif

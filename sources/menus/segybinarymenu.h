/// The tab of the binary reel header.
#ifndef SEGYBINARYMENU_H
#define SEGYBINARYMENU_H

#include <QPointer>
#include <QWidget>

class QPlainTextEdit;
class SegyLoader;
struct segyReel;

/// Lists the fields of the reel that is in use. The loader is lent and may go at any time.
class SegyBinaryMenu : public QWidget
{
    Q_OBJECT

public:
    explicit SegyBinaryMenu(QWidget* parent = nullptr);
    void newLoader(SegyLoader* loader);

public slots:
    void loadBinary();

private:
    QPointer<SegyLoader> _segyloader;
    QPlainTextEdit* _textEdit;
};

/// One line a field: the label padded to 40 characters, then the value as the record has it.
QString segyReelLines(const segyReel& reel);

#endif

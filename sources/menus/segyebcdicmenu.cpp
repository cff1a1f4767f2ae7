#include "sources/menus/segyebcdicmenu.h"

#include "sources/menus/fixedfont.h"
#include "sources/segyloader.h"
#include "widgets/wholefile.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPlainTextEdit>

constexpr int textLines = 40;
constexpr int lineLength = 80;

QString segyTextLines(const QByteArray& text)
{
    QString whole = QString::fromLatin1(text.constData(), text.size());
    for (QChar& c : whole)
        if (!c.isPrint()) c = ' ';  // a NUL would end the text, a line break shift the lines behind it
    whole = whole.leftJustified(textLines * lineLength, ' ', true);
    QStringList lines;
    for (int i = 0; i < textLines; ++i) lines += whole.mid(i * lineLength, lineLength);
    return lines.join('\n');
}

SegyEbcdicMenu::SegyEbcdicMenu(QWidget* parent) : QWidget(parent)
{
    setObjectName("segyebcdicmenu");
    _textEdit = fillWithText(this, tr("The 40 lines of the text header"));
}

void SegyEbcdicMenu::newLoader(SegyLoader* loader)
{
    _segyloader = loader;
    _textEdit->document()->setModified(false);
}

bool SegyEbcdicMenu::isEdited() const
{
    return _textEdit->document()->isModified();
}

void SegyEbcdicMenu::loadEbcdic()
{
    _textEdit->clear();
    if (_segyloader && _segyloader->getReelHeader()) _textEdit->setPlainText(segyTextLines(_segyloader->getEbcdic()));
}

bool SegyEbcdicMenu::loadText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        QMessageBox::warning(this, tr("EBCDIC"), tr("Cannot read file %1:\n%2.").arg(path, file.errorString()));
        return false;
    }
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        QMessageBox::warning(this, tr("EBCDIC"), tr("Cannot read file %1:\n%2.").arg(path, file.errorString()));
        return false;
    }
    _textEdit->setPlainText(QString::fromUtf8(text));
    _textEdit->document()->setModified(true);
    return true;
}

bool SegyEbcdicMenu::saveText(const QString& path)
{
    QString error;
    if (writeWhole(path, _textEdit->toPlainText().toUtf8(), &error)) return true;
    QMessageBox::warning(this, tr("EBCDIC"), error);
    return false;
}

void SegyEbcdicMenu::loadNewEbcdic()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Load EBCDIC Header"), QDir::homePath());
    if (!path.isEmpty()) loadText(path);
}

void SegyEbcdicMenu::saveEbcdic()
{
    const QString path = QFileDialog::getSaveFileName(this, tr("Save EBCDIC Header"), QDir::homePath());
    if (!path.isEmpty()) saveText(path);
}

void SegyEbcdicMenu::setReadWriteState()
{
    _readOnly = !_readOnly;
    _textEdit->setReadOnly(_readOnly);
    if (!_readOnly) _textEdit->setFocus();
}

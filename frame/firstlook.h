/// The first look at a file that was opened: does it need other settings?
#ifndef FIRSTLOOK_H
#define FIRSTLOOK_H

#include "sources/segyguesslook.h"

#include <QObject>

#include <functional>

class FirstLookBar;
class SegyGuessDialog;

/// Guesses the settings of a file on a thread of its own, by the file's path, and tells the bar what is misread. The
/// window never waits for it; a result that comes after the next file, or after the end, is dropped.
///
/// Changes nothing by itself: it has the file opened anew when the user presses the button, or has checked "Always".
class FirstLook : public QObject
{
    Q_OBJECT

public:
    using Guess =
        std::function<bool(const std::string& path, const SegyLoadParm& before, SegyGuess* guess, std::string* error)>;

    /// Opens a file by settings; false if it was refused.
    using Open = std::function<bool(const SegyLoadParm& parm)>;

    /// The bar is lent and outlives this.
    FirstLook(FirstLookBar* bar, Open open, QObject* parent);
    /// Waits for what is still being read.
    ~FirstLook() override;

    /// Starts a look. @param path  of the file that the reading is of
    void look(const QString& path, const SegyLoadParm& told, const SegyReading& reading);
    /// Another file is coming: forgets the last one, and what is still being guessed of it.
    void drop();
    /// Another way to guess, for tests.
    void setGuess(Guess guess) { _guess = std::move(guess); }

signals:
    /// The bar is going to offer settings. @param isOpen  the file is on the screen, else it was refused
    void offering(bool isOpen);

private:
    struct Found {
        QString path;
        SegyLoadParm told;
        SegyReading reading;
        SegyGuess guess;
        bool isRead = false;
    };
    void take(const Found& found);
    bool use();
    void useUnasked();
    void showDetails();

    FirstLookBar* _bar;
    Open _open;
    Guess _guess = guessSegyFile;
    SegyGuessDialog* _dialog = nullptr;  // child of the window, made on first use
    Found _found;
    int _number = 0;        // of the look that counts
    bool _isUsing = false;  // the guess's own settings are being opened
};

#endif

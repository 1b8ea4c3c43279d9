#pragma once

#include <QApplication>

class Messages;

/// The application object. It is the outermost handler of errors: what no command has reported itself (see
/// settings/RunReported.h) ends here, is shown to the user, and the program goes on with every document as it was.
class Application final : public QApplication
{
    Q_OBJECT

public:
    /// The program's title, used everywhere the per-user settings are read or written.
    static QString title();

    /// @param argc, argv the program's name only: every further argument is a file's path, whatever it looks like
    Application(int &argc, char **argv, Messages &messages);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    Messages &m_messages;
};

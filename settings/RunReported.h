#pragma once

class Messages;

/// Shows the error that is being handled to the user. To be called within catch (...); what is no error of this program
/// or of its memory is thrown on.
void reportCurrentError(Messages &messages);

/// Runs a command. An error that it raises is shown to the user; then the program goes on. Whatever the toolkit calls
/// and may raise an error is run so: most of the toolkit is built without exceptions, and one that passes through it
/// leaves its guards as they are and its memory behind.
template<class Command>
void runReported(Messages &messages, const Command &command)
{
    try {
        command();
    } catch (...) {
        reportCurrentError(messages);
    }
}

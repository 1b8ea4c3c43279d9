#include "app/CommonDialog.h"

#include "platform/FileAccess.h"
#include "platform/Messages.h"
#include "settings/FileFilters.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScopeGuard>

#include <optional>

namespace {

/// Shows the ordinary cursor for as long as the result lives: saving waits, but the user does not wait for the dialog.
auto ordinaryCursor()
{
    std::optional<QCursor> lifted;
    if (const QCursor *cursor = QGuiApplication::overrideCursor()) {
        lifted = *cursor;
        QGuiApplication::restoreOverrideCursor();
    }
    return qScopeGuard([lifted] {
        if (lifted)
            QGuiApplication::setOverrideCursor(*lifted);
    });
}

} // namespace

CommonDialog::CommonDialog(FileAccess &files, Messages &messages, QWidget &parent)
    : m_files(files)
    , m_messages(messages)
    , m_parent(parent)
{
}

QString CommonDialog::ShowOpen()
{
    return choose(Purpose::Open, QStringLiteral("Open"), m_fileName);
}

QString CommonDialog::ShowSave(const QString &proposal)
{
    return choose(Purpose::Save, QStringLiteral("Save As"), proposal);
}

QString CommonDialog::choose(Purpose purpose, const QString &title, const QString &proposal)
{
    const auto cursor = ordinaryCursor();
    QFileDialog dialog(&m_parent, title);
    dialog.setObjectName(QStringLiteral("CommonDialog"));
    dialog.setAcceptMode(purpose == Purpose::Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // A name that is not there is reported by who opens it, in the program's own words.
    dialog.setFileMode(QFileDialog::AnyFile);
    setFileFilters(dialog, QStringLiteral("Zentil Configuration (*.zcf)|*.zcf|All Files (*.*)|*.*"));
    if (!m_fileName.isEmpty())
        dialog.setDirectory(QFileInfo(m_fileName).path());
    if (!proposal.isEmpty())
        dialog.selectFile(proposal);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QString path = dialog.selectedFiles().constFirst();
    if (purpose == Purpose::Save && !mayReplace(path))
        return {};
    m_fileName = path;
    return path;
}

bool CommonDialog::mayReplace(const QString &path)
{
    // The toolkit's dialog asks by itself, except for names that it cannot look up: those with bytes that are not
    // UTF-8.
    if (QFileInfo::exists(path) || !m_files.fileExists(path))
        return true;
    return m_messages.ask(QStringLiteral("\"%1\" exists already. Do you want to replace it?").arg(path),
                          Messages::Buttons::YesNo) == Messages::Answer::Yes;
}

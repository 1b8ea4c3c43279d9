#pragma once

#include <QDialog>

class FileAccess;
class Messages;
class Programs;
class Registry;

/// The about box: which program this is, and what the system consists of.
class frmAbout final : public QDialog
{
    Q_OBJECT

public:
    /// What the box uses and somebody else owns.
    struct Services
    {
        Registry &registry;
        const FileAccess &files;
        Programs &programs;
        Messages &messages;
    };

    explicit frmAbout(const Services &services, QWidget *parent = nullptr);

private:
    void cmdSysInfo_Click();

    Services m_services;
};

#include "settings/frmAbout.h"

#include "platform/Messages.h"
#include "platform/Programs.h"
#include "settings/Icons.h"
#include "settings/SystemInformation.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVersionNumber>

namespace {

constexpr int iconSize = 48;

/// Of the description, in characters.
constexpr int textWidth = 44;

QLabel *createLabel(QWidget &form, QLatin1String name, const QString &text)
{
    auto *label = new QLabel(text, &form);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel *createTitle(QWidget &form)
{
    QLabel *title = createLabel(form, QLatin1String("lblTitle"), QCoreApplication::applicationName());
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.5);
    title->setFont(font);
    return title;
}

QString versionText()
{
    const QVersionNumber version = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    return QStringLiteral("Version %1.%2.%3")
        .arg(version.majorVersion())
        .arg(version.minorVersion())
        .arg(version.microVersion());
}

} // namespace

frmAbout::frmAbout(const Services &services, QWidget *parent)
    : QDialog(parent)
    , m_services(services)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About %1").arg(QCoreApplication::applicationName()));

    QLabel *icon = createLabel(*this, QLatin1String("picIcon"), {});
    icon->setPixmap(themedIcon(QLatin1String("zentilconf")).pixmap(iconSize));
    QLabel *version = createLabel(*this, QLatin1String("lblVersion"), versionText());
    version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QLabel *description = createLabel(*this, QLatin1String("lblDescription"),
                                      tr("Editor for the configuration files of the Zentil host-integrity monitor"));
    description->setWordWrap(true);
    description->setMinimumWidth(textWidth * fontMetrics().averageCharWidth());

    auto *ok = new QPushButton(tr("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    auto *sysInfo = new QPushButton(tr("&System information"), this);
    sysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    sysInfo->setAutoDefault(false);
    sysInfo->setToolTip(tr("Start the program that shows what this machine consists of"));
    connect(ok, &QPushButton::clicked, this, &frmAbout::accept);
    connect(sysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(sysInfo);
    auto *texts = new QGridLayout;
    texts->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
    texts->addWidget(createTitle(*this), 0, 1);
    texts->addWidget(version, 1, 1);
    texts->addWidget(description, 2, 1);
    texts->setColumnStretch(1, 1);
    texts->setHorizontalSpacing(fontMetrics().height());
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(texts);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmAbout::cmdSysInfo_Click()
{
    const QString tool = systemInformationTool(m_services.registry, m_services.files, m_services.programs);
    if (tool.isEmpty() || !m_services.programs.start(tool))
        m_services.messages.show(QStringLiteral("System Information Is Unavailable At This Time"));
}

#include "app/MainUtil.h"

#include <QLabel>
#include <QStatusBar>

MainUtil::MainUtil(QStatusBar &statusBar)
    : m_firstPanel(new QLabel(&statusBar))
{
    m_firstPanel->setObjectName(QStringLiteral("sbStatusBarPanel1"));
    m_firstPanel->setTextFormat(Qt::PlainText);
    statusBar.addWidget(m_firstPanel, 1);
}

QString MainUtil::status() const
{
    return m_firstPanel->text();
}

void MainUtil::setStatus(const QString &text)
{
    m_firstPanel->setText(text);
}

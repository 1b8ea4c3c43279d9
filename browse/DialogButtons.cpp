#include "browse/DialogButtons.h"

#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>

QPushButton *addDialogButtons(QDialog &dialog, QVBoxLayout &layout, const QString &okCaption,
                              const QString &cancelCaption)
{
    auto *okButton = new QPushButton(okCaption, &dialog);
    okButton->setObjectName(QStringLiteral("OKButton"));
    okButton->setDefault(true);

    auto *cancelButton = new QPushButton(cancelCaption, &dialog);
    cancelButton->setObjectName(QStringLiteral("CancelButton"));
    QObject::connect(cancelButton, &QPushButton::clicked, &dialog, &QDialog::reject);

    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(okButton);
    row->addWidget(cancelButton);
    layout.addStretch();
    layout.addSpacing(dialog.fontMetrics().height() / 2);
    layout.addLayout(row);
    return okButton;
}

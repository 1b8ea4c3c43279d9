#include "settings/OptionButtons.h"

#include "settings/RunReported.h"

#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>

void addOptionButtons(QDialog &dialog, QVBoxLayout &layout, Messages &messages, const QString &applyCaption,
                      const std::function<void()> &apply)
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    const auto add = [&](const QString &name, const QString &caption) {
        auto *button = new QPushButton(caption, &dialog);
        button->setObjectName(name);
        // Otherwise Enter would press the one that has the focus, or that comes next.
        button->setAutoDefault(false);
        row->addWidget(button);
        return button;
    };
    QPushButton *okButton = add(QStringLiteral("cmdOK"), QStringLiteral("OK"));
    QPushButton *cancelButton = add(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    QPushButton *applyButton = add(QStringLiteral("cmdApply"), applyCaption);
    okButton->setDefault(true);
    QObject::connect(okButton, &QPushButton::clicked, &dialog, [&dialog, &messages, apply] {
        runReported(messages, [&] {
            apply();
            dialog.accept();
        });
    });
    QObject::connect(cancelButton, &QPushButton::clicked, &dialog, &QDialog::reject);
    QObject::connect(applyButton, &QPushButton::clicked, &dialog, [&messages, apply] { runReported(messages, apply); });
    layout.addLayout(row);
}

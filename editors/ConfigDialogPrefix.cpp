#include "editors/ConfigDialogPrefix.h"

#include "browse/DialogButtons.h"
#include "editors/WrappingRadioButton.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

struct PrefixOption
{
    QLatin1String prefix;
    QLatin1String caption;
};

// clang-format off
constexpr std::array<PrefixOption, 4> prefixOptions {{
    {QLatin1String("="),  QLatin1String("[=] Do not store all files within the given directory but do store directories within that directory. File in subdirectories are stored.")},
    {QLatin1String("=="), QLatin1String("[==] Do not store all files within the given directory nor any files within subdirectories at any level below the given directory.")},
    {QLatin1String("!"),  QLatin1String("[!] Do not store item.")},
    {QLatin1String("!!"), QLatin1String("[!!] Do not store item or its children.")},
}};
// clang-format on

} // namespace

ConfigDialogPrefix::ConfigDialogPrefix(QLineEdit &prefix, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("ConfigDialogPrefix"));
    setWindowTitle(QStringLiteral("Prefix Options"));
    auto *layout = new QVBoxLayout(this);
    for (size_t i = 0; i < prefixOptions.size(); ++i) {
        m_options[i] = new WrappingRadioButton(prefixOptions[i].caption, this);
        m_options[i]->setObjectName(QStringLiteral("OptionEq_%1").arg(i));
        layout->addWidget(m_options[i]);
    }

    QPushButton *okButton = addDialogButtons(*this, *layout, tr("OK"), QStringLiteral("&Cancel"));
    connect(okButton, &QPushButton::clicked, this, [this, &prefix] {
        prefix.setText(chosenPrefix());
        accept();
    });
    m_options[0]->setFocus();
}

QString ConfigDialogPrefix::chosenPrefix() const
{
    for (size_t i = 0; i < m_options.size(); ++i) {
        if (m_options[i]->isChecked())
            return prefixOptions[i].prefix;
    }
    return {};
}

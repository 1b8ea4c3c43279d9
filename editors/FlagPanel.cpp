#include "editors/FlagPanel.h"

#include "editors/FlagAlphabet.h"
#include "editors/FlagText.h"
#include "editors/LineEdit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// In characters: what is usual for an event's number or a size, and what keeps the columns of letters apart.
constexpr int numberWidth = 12;
constexpr int columnDistance = 4;

} // namespace

FlagPanel::FlagPanel(const FlagAlphabet &alphabet, QLatin1String otherFlagsLabel, QWidget *parent)
    : QWidget(parent)
    , m_alphabet(alphabet)
    , m_layout(new QVBoxLayout(this))
    , m_letters(alphabet.letters.size())
{
    setObjectName(QStringLiteral("FlagPanel"));
    m_layout->setContentsMargins({});
    for (const FlagFrame &frame : alphabet.frames)
        m_layout->addWidget(addFrame(frame));
    addOtherFlags(otherFlagsLabel);
    if (!alphabet.quickSets.empty())
        addQuickButtons();
}

QString FlagPanel::BuildFlags() const
{
    return buildFlags(m_alphabet, parts());
}

void FlagPanel::ParseFlags(const QString &flags)
{
    const FlagText read = parseFlags(m_alphabet, flags, parts());
    for (size_t i = 0; i < m_letters.size(); ++i)
        m_letters[i]->setChecked(read.letters.contains(QLatin1Char(m_alphabet.letters[i].letter)));
    for (size_t i = 0; i < m_options.size(); ++i) {
        m_options[i].box->setChecked(read.options[i].isChecked);
        m_options[i].field->setLine(read.options[i].text);
    }
    m_otherFlags->setLine(read.otherFlags);
}

FlagText FlagPanel::parts() const
{
    FlagText result;
    for (size_t i = 0; i < m_letters.size(); ++i) {
        if (m_letters[i]->isChecked())
            result.letters += QLatin1Char(m_alphabet.letters[i].letter);
    }
    for (const OptionControls &option : m_options)
        result.options.push_back({option.box->isChecked(), option.field->line()});
    result.otherFlags = m_otherFlags->line();
    return result;
}

QCheckBox &FlagPanel::box(char letter) const
{
    return *m_letters[indexOf(letter)];
}

void FlagPanel::SetAllFlags(int value)
{
    for (QCheckBox *box : m_letters)
        box->setChecked(value != 0);
    for (size_t i = 0; i < m_options.size(); ++i) {
        if (m_alphabet.options[i].isSetWithLetters)
            m_options[i].box->setChecked(value != 0);
    }
}

QGroupBox *FlagPanel::addFrame(const FlagFrame &frame)
{
    auto *frameBox = new QGroupBox(frame.caption, this);
    frameBox->setObjectName(frame.control);
    auto *layout = new QVBoxLayout(frameBox);

    if (!frame.letters.isEmpty()) {
        auto *letters = new QGridLayout;
        addLetters(*letters, frame);
        layout->addLayout(letters);
    }
    if (frame.control == m_alphabet.frames.back().control && !m_alphabet.options.empty()) {
        auto *options = new QGridLayout;
        addOptions(*options);
        layout->addLayout(options);
    }
    return frameBox;
}

void FlagPanel::addLetters(QGridLayout &layout, const FlagFrame &frame)
{
    layout.setHorizontalSpacing(columnDistance * fontMetrics().averageCharWidth());
    // Down the columns, as one reads a list.
    const int rows = (int(frame.letters.size()) + frame.columns - 1) / frame.columns;
    for (int i = 0; i < int(frame.letters.size()); ++i) {
        const size_t index = indexOf(frame.letters.begin()[i]);
        const FlagLetter &letter = m_alphabet.letters[index];
        auto *check = new QCheckBox(letter.caption, this);
        check->setObjectName(letter.control);
        check->setToolTip(letter.toolTip);
        layout.addWidget(check, i % rows, i / rows, Qt::AlignLeft);
        m_letters[index] = check;
    }
}

void FlagPanel::addOptions(QGridLayout &layout)
{
    for (const FlagOption &option : m_alphabet.options) {
        const int row = int(m_options.size());
        auto *box = new QCheckBox(option.caption, this);
        box->setObjectName(option.control);
        auto *field = new LineEdit(option.field, this);
        field->setToolTip(option.fieldToolTip);
        field->setAccessibleName(option.caption);
        field->setFixedWidth(field->minimumSizeHint().width() + numberWidth * fontMetrics().averageCharWidth());
        field->setEnabled(false);
        connect(box, &QCheckBox::toggled, field, &QWidget::setEnabled);
        layout.addWidget(box, row, 0, Qt::AlignLeft);
        layout.addWidget(field, row, 1);
        m_options.push_back({box, field});
    }
    layout.setColumnStretch(2, 1);
}

void FlagPanel::addOtherFlags(QLatin1String labelName)
{
    auto *label = new QLabel(QStringLiteral("Other flags"), this);
    label->setObjectName(labelName);
    m_otherFlags = new LineEdit(QLatin1String("OtherFlags"), this);
    label->setBuddy(m_otherFlags);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_otherFlags);
    m_layout->addLayout(row);
}

void FlagPanel::addQuickButtons()
{
    auto *row = new QHBoxLayout;
    const auto add = [&](const QString &name, const QString &caption) {
        auto *button = new QPushButton(caption, this);
        button->setObjectName(name);
        row->addWidget(button);
        return button;
    };
    for (const FlagQuickSet &set : m_alphabet.quickSets) {
        QPushButton *button = add(set.control, set.caption);
        button->setToolTip(set.toolTip);
        connect(button, &QPushButton::clicked, this, [this, letters = set.letters] {
            SetAllFlags(0);
            ParseFlags(letters);
        });
    }
    connect(add(QStringLiteral("ClearButton"), QStringLiteral("Clear")), &QPushButton::clicked, this,
            [this] { SetAllFlags(0); });
    row->addStretch();
    m_layout->addLayout(row);
}

size_t FlagPanel::indexOf(char letter) const
{
    const auto found = std::find_if(m_alphabet.letters.begin(), m_alphabet.letters.end(),
                                    [letter](const FlagLetter &each) { return each.letter == letter; });
    return size_t(found - m_alphabet.letters.begin());
}

#pragma once

#include <QWidget>

#include <vector>

class LineEdit;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QVBoxLayout;
struct FlagAlphabet;
struct FlagFrame;
struct FlagOption;
struct FlagText;

/// The controls of an alphabet: a check box for each letter, a check box with a field for each option, OtherFlags, the
/// buttons of the quick sets and, where there are such, ClearButton.
class FlagPanel final : public QWidget
{
    Q_OBJECT

public:
    /// @param otherFlagsLabel the name of the label of OtherFlags
    FlagPanel(const FlagAlphabet &alphabet, QLatin1String otherFlagsLabel, QWidget *parent);

    /// The flags text of what the controls show.
    [[nodiscard]] QString BuildFlags() const;

    /// Shows a flags text. The box of an option is checked when the text has the option, and stays as it is otherwise.
    void ParseFlags(const QString &flags);

    /// What the controls show.
    [[nodiscard]] FlagText parts() const;

    /// The check box of a letter of the alphabet.
    [[nodiscard]] QCheckBox &box(char letter) const;

    /// Puts a value, 0 or 1, into the check box of every letter (and into those of the options that go with them).
    void SetAllFlags(int value);

private:
    struct OptionControls
    {
        QCheckBox *box;
        LineEdit *field;
    };

    QGroupBox *addFrame(const FlagFrame &frame);
    void addLetters(QGridLayout &layout, const FlagFrame &frame);
    void addOptions(QGridLayout &layout);
    void addOtherFlags(QLatin1String labelName);
    void addQuickButtons();
    [[nodiscard]] size_t indexOf(char letter) const;

    const FlagAlphabet &m_alphabet;
    QVBoxLayout *m_layout;
    /// In the order of the alphabet.
    std::vector<QCheckBox *> m_letters;
    std::vector<OptionControls> m_options;
    LineEdit *m_otherFlags = nullptr;
};

#include "editors/ConfigDialogRight.h"

#include "editors/EditorServices.h"
#include "editors/FlagAlphabets.h"
#include "editors/LineEdit.h"
#include "editors/UserRights.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTreeWidget>

namespace {

enum Column : int { Right, Desc, ColumnCount };

/// A list of rights that is wide enough for its texts.
class RightsTree final : public QTreeWidget
{
public:
    explicit RightsTree(QWidget *parent)
        : QTreeWidget(parent)
    {
        setObjectName(QStringLiteral("RightsList"));
        setColumnCount(ColumnCount);
        setHeaderLabels({QStringLiteral("Right"), QStringLiteral("Description")});
        setRootIsDecorated(false);
        setUniformRowHeights(true);
        setAllColumnsShowFocus(true);
        for (const UserRight &right : userRights) {
            auto *row = new QTreeWidgetItem(this, {right.name, right.description});
            row->setCheckState(Right, Qt::Unchecked);
        }
        header()->setSectionResizeMode(Right, QHeaderView::ResizeToContents);
        // So that one sees which row the keys are for as soon as the list has the focus.
        setCurrentItem(topLevelItem(0));
    }

    [[nodiscard]] QSize sizeHint() const override { return sizeFor(rowsAtFirst); }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeFor(rowsAtLeast); }

private:
    static constexpr int rowsAtFirst = 14;
    static constexpr int rowsAtLeast = 5;

    [[nodiscard]] QSize sizeFor(int rows) const
    {
        int width = verticalScrollBar()->sizeHint().width();
        for (const int column : {Right, Desc})
            width += qMax(sizeHintForColumn(column), header()->sectionSizeHint(column));
        return QSize(width, header()->sizeHint().height() + rows * sizeHintForRow(0)) +
               QSize(frameWidth(), frameWidth()) * 2;
    }
};

} // namespace

ConfigDialogRight::ConfigDialogRight(const EditorServices &services, QWidget *parent)
    : FlagEditorForm(QLatin1String("ConfigDialogRight"), QStringLiteral("User Rights"), services.messages, parent)
    , m_allRights(new QCheckBox(QStringLiteral("Monitor all rights"), this))
    , m_rightsList(new RightsTree(this))
    , m_objectName(new LineEdit(QLatin1String("ObjectName"), this))
{
    addRights();
    addFlags(userRightFlags);
    addButtons(QStringLiteral("&Apply"), QStringLiteral("Cancel"));
}

void ConfigDialogRight::SetDefaultItem()
{
    m_allRights->setChecked(true);
    m_objectName->setLine({});
}

void ConfigDialogRight::showObject(const QString &object)
{
    const UserRightsText rights = parseUserRights(object);
    m_allRights->setChecked(rights.isAll);
    // What is disabled keeps what it shows; the user finds it again when single rights are wanted.
    if (rights.isAll)
        return;
    for (size_t i = 0; i < userRights.size(); ++i)
        m_rightsList->topLevelItem(int(i))->setCheckState(Right, rights.listed[i] ? Qt::Checked : Qt::Unchecked);
    m_objectName->setLine(rights.others);
}

QString ConfigDialogRight::object() const
{
    UserRightsText rights;
    rights.isAll = m_allRights->isChecked();
    for (size_t i = 0; i < userRights.size(); ++i)
        rights.listed[i] = m_rightsList->topLevelItem(int(i))->checkState(Right) == Qt::Checked;
    rights.others = m_objectName->line();
    return buildUserRights(rights);
}

void ConfigDialogRight::addRights()
{
    m_allRights->setObjectName(QStringLiteral("AllRights"));
    connect(m_allRights, &QCheckBox::toggled, m_rightsList, &QWidget::setDisabled);
    connect(m_allRights, &QCheckBox::toggled, m_objectName, &QWidget::setDisabled);

    addPart(*m_allRights, Grows::No, Qt::AlignLeft);
    addRightsLabel(QStringLiteral("Label1"), QStringLiteral("Rights to monitor"), *m_rightsList);
    m_rightsList->setAccessibleName(QStringLiteral("Rights to monitor"));
    addPart(*m_rightsList, Grows::Yes);
    addRightsLabel(QStringLiteral("Label2"), QStringLiteral("Other rights (wildcards accepted)"), *m_objectName);
    addPart(*m_objectName);
}

void ConfigDialogRight::addRightsLabel(const QString &name, const QString &text, QWidget &buddy)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(name);
    label->setBuddy(&buddy);
    addPart(*label);
}

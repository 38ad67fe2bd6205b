#include "widgetkit.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace core {

QPushButton* makeButton(QWidget* parent, const QString& caption, const QString& objectName,
                        bool isDefault) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(objectName);
    button->setDefault(isDefault);
    return button;
}

QHBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* b : buttons)
        row->addWidget(b);
    return row;
}

void formLayout(QWidget* dialog, std::initializer_list<FormRow> rows,
                std::initializer_list<QPushButton*> buttons) {
    auto* grid = new QGridLayout(dialog);
    int row = 0;
    for (const FormRow& r : rows) {
        const bool tall = qobject_cast<QPlainTextEdit*>(r.field) != nullptr;
        grid->addWidget(new QLabel(r.caption, dialog), row, 0,
                        tall ? Qt::AlignTop : Qt::Alignment());
        grid->addWidget(r.field, row, 1);
        ++row;
    }
    grid->addLayout(buttonRow(buttons), row, 0, 1, 2);
}

} // namespace core

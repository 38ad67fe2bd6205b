#include "widgetkit.h"

#include "routines.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace core {

namespace {

class NumericKeyFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const QString text = static_cast<QKeyEvent*>(event)->text();
            if (!text.isEmpty() && !isnumerickey(text.at(0).unicode())) return true;
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

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
        auto* label = new QLabel(r.caption, dialog);
        // A caption's "&" marks its Alt key, which moves to the field beside it.
        label->setBuddy(r.field);
        grid->addWidget(label, row, 0, tall ? Qt::AlignTop : Qt::Alignment());
        grid->addWidget(r.field, row, 1);
        ++row;
    }
    grid->addLayout(buttonRow(buttons), row, 0, 1, 2);
}

void numericKeysOnly(QLineEdit* edit) {
    edit->installEventFilter(new NumericKeyFilter(edit));
}

QLineEdit* readOnlyBox(QWidget* parent, const QString& objectName) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(objectName);
    box->setReadOnly(true);
    return box;
}

} // namespace core

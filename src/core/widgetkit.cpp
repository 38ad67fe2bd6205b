#include "widgetkit.h"

#include <QHBoxLayout>
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

} // namespace core

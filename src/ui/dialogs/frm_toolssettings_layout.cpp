#include "controls/buttons/control_making.h"
#include "ui/dialogs/frm_toolssettings.h"
#include "ui/parts/sample_slide.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace velorama {
namespace {

// Logical pixels.
constexpr int Gap = 8;
constexpr int WideGap = 12;
constexpr int Margin = 14;
constexpr QSize SampleSize(192, 120);

QLabel* labelFor(QWidget* control, const QString& caption) {
    auto* label = new QLabel(caption, control->parentWidget());
    label->setBuddy(control);
    return label;
}

QGroupBox* group(const QString& caption, QLayout* content, QWidget* form) {
    auto* box = new QGroupBox(caption, form);
    content->setContentsMargins(WideGap, Gap + 2, WideGap, WideGap);
    content->setSpacing(Gap);
    box->setLayout(content);
    return box;
}

updown* spinner(const char* name, const QString& designText, QWidget* form) {
    auto* field = make<updown>(name, form);
    field->design(1, 1000, 1, designText);
    return field;
}

}  // namespace

// In the order of the Tab key.
void frmTOOLSSETTINGS::makeControls() {
    chkTBAR = make<QCheckBox>("chkTBAR", this);
    chkTBAR->setText(QStringLiteral("&Auto-hide slideshow toolbar"));
    udnINTERVAL = spinner("udnINTERVAL", QStringLiteral("4"), this);
    udnTRANSITIONVAL = spinner("udnTRANSITIONVAL", QStringLiteral("15"), this);
    lblFADE = makeText(this, "lblFADE");
    for (updown* field : {udnINTERVAL, udnTRANSITIONVAL}) {
        connect(field, &updown::Change, this, &frmTOOLSSETTINGS::showFade);
    }
    picBACKGROUND = new ColourField(
        {"picBACKGROUND", "cddGRADSHDW", "btnBACK", "darBACKGROUND", "Background color"}, cdlDIALOG,
        this);
    picGRADCOLOR = new ColourField(
        {"picGRADCOLOR", "cddGRAD", "btnGRADCOLOR", "darGRAD", "Gradient color"}, cdlDIALOG, this);
    for (const ColourField* field : {picBACKGROUND, picGRADCOLOR}) {
        connect(field, &ColourField::Chosen, this, &frmTOOLSSETTINGS::paintSample);
    }
    picSAMPLE = make<PictureBox>("picSAMPLE", this);
    picSAMPLE->setAccessibleName(QStringLiteral("Sample of the background"));
    picSAMPLE->setFixedSize(SampleSize);
    txtDESC = make<DescriptionEdit>("txtDESC", this);
    btnOK = makeDialogButton(this, "btnOK", QStringLiteral("OK "));
    btnOK->setDefault(true);
    btnCANCEL = makeDialogButton(this, "btnCANCEL", QStringLiteral("Cancel "));
    connect(btnOK, &QPushButton::clicked, this, &frmTOOLSSETTINGS::btnOK_Click);
    connect(btnCANCEL, &QPushButton::clicked, this, &frmTOOLSSETTINGS::btnCANCEL_Click);
}

void frmTOOLSSETTINGS::layOut() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(WideGap);
    column->addWidget(toolbarGroup());
    column->addWidget(intervalGroup());
    column->addWidget(colourGroup());
    column->addWidget(descriptionGroup());
    column->addLayout(buttons());
    column->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* frmTOOLSSETTINGS::toolbarGroup() {
    auto* content = new QVBoxLayout;
    content->addWidget(chkTBAR);
    return group(QStringLiteral(" Toolbar "), content, this);
}

QWidget* frmTOOLSSETTINGS::intervalGroup() {
    auto* content = new QGridLayout;
    content->addWidget(labelFor(udnINTERVAL, QStringLiteral("Picture I&nterval (Default 4s):")), 0,
                       0);
    content->addWidget(udnINTERVAL, 0, 1);
    content->addWidget(
        labelFor(udnTRANSITIONVAL, QStringLiteral("T&ransition Interval (Default 15ms):")), 1, 0);
    content->addWidget(udnTRANSITIONVAL, 1, 1);
    content->addWidget(lblFADE, 2, 0, 1, 2);
    content->setColumnStretch(0, 1);
    return group(QStringLiteral(" Slide Interval Time "), content, this);
}

QWidget* frmTOOLSSETTINGS::colourGroup() {
    auto* content = new QGridLayout;
    QWidget* back = picBACKGROUND->button();
    QWidget* gradientButton = picGRADCOLOR->button();
    content->addWidget(labelFor(back, QStringLiteral("&Background:")), 0, 0);
    content->addWidget(back, 0, 1);
    content->addWidget(labelFor(gradientButton, QStringLiteral("&Gradient:")), 1, 0);
    content->addWidget(gradientButton, 1, 1);
    content->setColumnStretch(1, 1);
    content->setRowStretch(2, 1);
    content->addWidget(picSAMPLE, 0, 3, 3, 1);
    content->setColumnMinimumWidth(2, Gap);

    auto* slide = make<SampleSlide>("Image1", picSAMPLE);
    slide->move((SampleSize.width() - slide->width()) / 2,
                (SampleSize.height() - slide->height()) / 2);
    return group(QStringLiteral(" Slideshow Background Colors "), content, this);
}

QWidget* frmTOOLSSETTINGS::descriptionGroup() {
    auto* content = new QGridLayout;
    content->addWidget(labelFor(txtDESC, QStringLiteral("&Text:")), 0, 0);
    content->addWidget(txtDESC, 0, 1);
    const QString hint = QStringLiteral("Only shown here: what you change is not saved.");
    txtDESC->setAccessibleDescription(hint);
    content->addWidget(makeText(this, "lblDESCHINT", hint), 1, 0, 1, 2);
    return group(QStringLiteral(" Slideshow Description "), content, this);
}

QBoxLayout* frmTOOLSSETTINGS::buttons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(Gap);
    row->addStretch();
    row->addWidget(btnOK);
    row->addWidget(btnCANCEL);
    return row;
}

}  // namespace velorama

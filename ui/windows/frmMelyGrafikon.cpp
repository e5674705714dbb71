#include "ui/windows/frmMelyGrafikon.h"

#include <QButtonGroup>

#include "ui/look/access.h"
#include "ui/look/enter_key.h"
#include "ui/look/placement.h"
#include "ui/look/undo_line.h"
#include "ui_frmMelyGrafikon.h"

namespace tarvik::ui {
namespace {

constexpr int kRightTwips = 3'000;
constexpr int kDownTwips = 3'500;

}  // namespace

frmMelyGrafikon::frmMelyGrafikon(Context& context, QPoint mainTopLeft, QWidget* parent, int seenLast)
    : QDialog(parent),
      context_(context),
      ui_(std::make_unique<Ui::frmMelyGrafikon>()),
      options_(new QButtonGroup(this)) {
  ui_->setupUi(this);
  makeAccessible(*this);
  int number = 0;
  for (QRadioButton* option : findChildren<QRadioButton*>()) options_->addButton(option, ++number);
  const int choice = context_.state.chartChoice;
  if (QAbstractButton* last = options_->button(choice != 0 ? choice : seenLast)) {
    last->setChecked(true);
    last->setFocus();
  }
  connect(ui_->cmdMegjelenit, &QPushButton::clicked, this, &frmMelyGrafikon::takeChecked);
  connect(ui_->cmdMegsem, &QPushButton::clicked, this, &frmMelyGrafikon::reject);
  followEnterRule(*this);
  new UndoLine(context_, *this, *ui_->mainLayout, [](const core::Travelled&) {});
  keepWithinReach(*this);
  openAt(*this, mainTopLeft + QPoint(pixelsOfTwips(kRightTwips, *this), pixelsOfTwips(kDownTwips, *this)));
}

frmMelyGrafikon::~frmMelyGrafikon() = default;

void frmMelyGrafikon::takeChecked() {
  const int checked = options_->checkedId();
  if (checked > 0) context_.state.chartChoice = static_cast<std::int16_t>(checked);
  accept();
}

void frmMelyGrafikon::reject() {
  context_.state.chartChoice = 0;
  QDialog::reject();
}

}  // namespace tarvik::ui

#pragma once

#include <QComboBox>

namespace tarvik::ui {

/// An editable drop-down that completes nothing: what is typed stays as it was typed. The arrows go on from
/// the text that is shown, to its neighbour in the list, or to the first item where the text is none of the
/// list.
///
/// The items of the lists are padded with spaces. The padding of a text that was not typed stays in the
/// field, but the cursor goes no further than behind the last letter, and what is typed takes the padding's
/// place.
class EditableBox : public QComboBox {
 public:
  explicit EditableBox(QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int shownItem() const;
  void followEdit(const QString& text);
  void followText(const QString& text);
  void keepCursorFromPadding();

  qsizetype length_ = 0;   // of the text in the field
  qsizetype padding_ = 0;  // spaces at its end that nobody typed
  bool isEdited_ = false;  // a change of the text that is being told is the person's
};

}  // namespace tarvik::ui

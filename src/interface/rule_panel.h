#pragma once

#include "interface/dialog_panel.h"

#include <QVector>

namespace tarvin {

class ControlGroup;
class ElidedLabel;
class FolderList;
class GlyphButton;
class HoverButton;
class RadioButton;

/// `markByRuleWindow`: the rule that says which file of each set stays, the folders that it uses,
/// and what it would mark. Fixed size. Its owner sets the models of the lists, the two lines below
/// and the states of the buttons, and connects all. Main thread only.
class RulePanel final : public DialogPanel {
    Q_OBJECT

 public:
    /// Its geometry in the design.
    static constexpr QRect designGeometry{112, 97, 792, 412};

    explicit RulePanel(QWidget* parent);

    ControlGroup* const ruleGroup;  ///< the parent of the rules
    RadioButton* const ruleFirst;
    RadioButton* const ruleNewest;
    RadioButton* const ruleOldest;
    RadioButton* const ruleShortest;
    RadioButton* const ruleLongest;
    RadioButton* const ruleFolder;
    FolderList* const preferredList;
    HoverButton* const preferredAdd;
    HoverButton* const preferredRemove;
    GlyphButton* const preferredUp;
    GlyphButton* const preferredDown;
    FolderList* const protectedList;
    HoverButton* const protectedAdd;
    HoverButton* const protectedRemove;
    QLabel* const ruleOutcome;
    ElidedLabel* const ruleBlocked;
    HoverButton* const ruleCancel;
    HoverButton* const ruleMark;

    /// The rules from the top to the bottom.
    [[nodiscard]] QVector<RadioButton*> rules() const;

 protected:
    /// Return on a rule activates Mark, the default.
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void placeRules();
    void placeLists();
    void placeFoot();
    void nameControls();
    void orderKeys();
};

}  // namespace tarvin

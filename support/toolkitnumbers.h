// The numbers that the toolkit gives a meaning to. Each has the name that the headers of the host's
// toolkit give it; those of a phone need not have one.
#ifndef SUPPORT_TOOLKITNUMBERS_H
#define SUPPORT_TOOLKITNUMBERS_H

namespace toolkit {

// Widget class ids: the look of a widget.
enum WidgetClass {
    AppInfoArea = 3,
    FormContainer = 23,
    FormLineEdit = 39,
    OptionsMenu = 54,
    FormPressButton = 60,
    SegmentField = 63,
    Separator = 64,
    PlainLabel = 86
};

// How a field takes its text: from the keypad in one of the first two modes, or hidden.
enum InputMode { DialNumberInput = 4, NumericInput = 6, PasswordInput = 8 };

// The two places of a soft-key bar.
enum SoftKeyPlace { LeftKey = 0, RightKey = 1 };

enum PopupType { UsualType = 0 };
enum PopupStyle { ProgressStyle = 464 };
enum PopupResult { Accepted = 1 };

enum MorphMode { FormMorph = 3 };

// How the dialog of a choice shows its items.
enum DialogType { MarkedDialog = 0, PlainDialog = 1 };

enum MessageType { Information = 2 };
enum NoticeType { Success = 0 };

// The part of a row of a list, or of the title bar's widget, that holds the text.
enum TextPlace { TextSubItem = 1, TextArea = 1 };

// How much of a row the first of its two texts has, in percent.
enum TextShare { HalfOfTheRow = 50 };

// Both ways, as Qt 2 numbers them.
enum Alignment { Centred = 36 };

} // namespace toolkit

#endif

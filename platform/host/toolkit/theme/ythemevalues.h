// Which value of a theme file is which member of a theme.
#ifndef YTHEMEVALUES_H
#define YTHEMEVALUES_H

#include "toolkit/look/ytheme.h"

struct YThemeNumber
{
    const char* path;
    int YTheme::*member;
};

// What is written in letters, heights and sizes grows with the text size that is chosen.
constexpr YThemeNumber themeNumbers[] = {
    {"letters.body", &YTheme::body},
    {"letters.title", &YTheme::title},
    {"letters.small", &YTheme::smallLetters},
    {"letters.smallIdeographs", &YTheme::smallIdeographs},
    {"letters.segment", &YTheme::segmentLetters},
    {"letters.smallestTitle", &YTheme::smallestTitle},
    {"letters.twoLineTitle", &YTheme::twoLineTitle},
    {"letters.smallestKey", &YTheme::smallestKey},
    {"heights.softKey", &YTheme::softKeyHeight},
    {"heights.title", &YTheme::titleHeight},
    {"heights.row", &YTheme::rowHeight},
    {"heights.box", &YTheme::boxHeight},
    {"sizes.icon", &YTheme::icon},
    {"sizes.mark", &YTheme::mark},
    {"sizes.check", &YTheme::check},
    {"sizes.sign", &YTheme::sign},
    {"sizes.arrow", &YTheme::arrow},
    {"sizes.eye", &YTheme::eye},
    {"spaces.busy", &YTheme::busy},
    {"spaces.busyLine", &YTheme::busyLine},
    {"spaces.dialogIcon", &YTheme::dialogIcon},
    {"sizes.segment", &YTheme::segment},
    {"sizes.field", &YTheme::field},
    {"spaces.margin", &YTheme::margin},
    {"spaces.dialogIconTop", &YTheme::dialogIconTop},
    {"spaces.rowGap", &YTheme::rowGap},
    {"spaces.labelGap", &YTheme::labelGap},
    {"spaces.boxInset", &YTheme::boxInset},
    {"spaces.segmentGap", &YTheme::segmentGap},
    {"spaces.headerLine", &YTheme::headerLine},
    {"spaces.listLine", &YTheme::listLine},
    {"spaces.menuLine", &YTheme::menuLine},
    {"spaces.buttonLine", &YTheme::buttonLine},
    {"spaces.buttonSide", &YTheme::buttonSide},
    {"spaces.menuEdge", &YTheme::menuEdge},
    {"spaces.aboveSeparator", &YTheme::aboveSeparator},
    {"spaces.belowSeparator", &YTheme::belowSeparator},
    {"spaces.focus", &YTheme::focus},
    {"spaces.line", &YTheme::line},
    {"spaces.indicator", &YTheme::indicator},
    {"spaces.shortestIndicator", &YTheme::shortestIndicator},
    {"spaces.slide", &YTheme::slide},
    {"spaces.scrollStep", &YTheme::scrollStep},
    {"radii.popup", &YTheme::popupRadius},
    {"radii.box", &YTheme::boxRadius},
    {"radii.button", &YTheme::buttonRadius},
    {"radii.selection", &YTheme::selectionRadius},
    {"durations.slide", &YTheme::slideTime},
    {"durations.press", &YTheme::pressTime},
    {"durations.turn", &YTheme::turnTime},
    {"durations.notice", &YTheme::noticeTime},
    {"durations.lastLetter", &YTheme::lastLetterTime},
};

struct YThemeColour
{
    const char* name; // below "colours.light" and "colours.dark"
    QColor YTheme::*member;
};

constexpr YThemeColour themeColours[] = {
    {"background", &YTheme::background},
    {"surface", &YTheme::surface},
    {"bar", &YTheme::bar},
    {"text", &YTheme::text},
    {"mutedText", &YTheme::mutedText},
    {"disabledText", &YTheme::disabledText},
    {"border", &YTheme::border},
    {"outline", &YTheme::outline},
    {"success", &YTheme::success},
    {"failure", &YTheme::failure},
    {"warning", &YTheme::warning},
    {"shade", &YTheme::shade},
};

#endif

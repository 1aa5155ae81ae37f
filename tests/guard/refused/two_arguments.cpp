// refused: conversion
#include <qstring.h>

QString refusedTwoArguments(const QString& text)
{
    return text.arg(text, text);
}

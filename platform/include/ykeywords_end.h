// Takes back the words that ykeywords_begin.h has lent.
#ifdef Y_KEYWORDS_LENT
#undef signals
#undef slots
#undef Y_KEYWORDS_LENT
#endif

// Takes back the words that vornqtnapi_keywords_begin.h has lent.
#ifdef VORNQTNAPI_KEYWORDS_LENT
#undef signals
#undef slots
#undef VORNQTNAPI_KEYWORDS_LENT
#endif

#ifndef QOBJECTDEFS_H
#define QOBJECTDEFS_H

class QMetaObject;
class QString;

#define slots
#define signals protected
#define emit

#define SIGNAL(text) "2" #text
#define SLOT(text) "1" #text
#define METHOD(text) "0" #text

#define Q_OBJECT                                                                                   \
public:                                                                                            \
    virtual QMetaObject* metaObject() const;                                                       \
    virtual const char* className() const;                                                         \
    static QMetaObject* staticMetaObject();                                                        \
    static QString tr(const char* text);                                                           \
    static QString tr(const char* text, const char* comment);                                      \
                                                                                                   \
protected:                                                                                         \
    virtual void initMetaObject();                                                                 \
                                                                                                   \
private:                                                                                           \
    static QMetaObject* metaObj;

#endif

// The desktop's settings portal on the session bus.
#ifndef YPORTAL_H
#define YPORTAL_H

#include <optional>

#include <QDBusVariant>
#include <QObject>

class YPortal : public QObject
{
    Q_OBJECT

public:
    // Asks once, and hears of every change from then on.
    explicit YPortal(QObject* parent);

    // 0 no preference, 1 dark, 2 light; nothing where there is no portal.
    std::optional<unsigned int> scheme() const { return m_scheme; }

private slots:
    void change(const QString& group, const QString& key, const QDBusVariant& value);

private:
    std::optional<unsigned int> m_scheme;
};

#endif

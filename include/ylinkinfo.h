// What is told about a link together with the news that it is up or broken.
#ifndef YLINKINFO_H
#define YLINKINFO_H

// Passed by reference with YDataSessionManager::connected() and broken(). The record lives only
// while the signal is being emitted: a receiver copies what it needs. All values come from the
// network API.
struct YLinkInfo
{
    // The link's IPv4 address with the first octet in the most significant byte (10.1.2.3 is
    // 0x0A010203); 0 when it has none.
    unsigned int infoWord;
    // What carries the link: 0 unknown, 1 GPRS, 2 circuit-switched data, 3 WiFi.
    unsigned int infoByte;
    // The link's network device, for instance "wwan0"; NUL-terminated UTF-8, "" when it has none.
    char infoText[104];
};

#endif

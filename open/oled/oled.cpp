#include "platform/oled.h"

#include "open/link/linkclient.h"

int oled_update_set(int on)
{
    static LinkClient link(desklink::Role::Display);
    if (!link.connectToDesk())
        return -1;
    const desklink::RefreshBody body = {on != 0};
    return link.send(desklink::Kind::Refresh, desklink::bytesOf(body)) ? 0 : -1;
}

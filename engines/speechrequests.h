#ifndef SPEECHREQUESTS_H
#define SPEECHREQUESTS_H

#include "engines/speechtext.h"

#include <QList>
#include <memory>

/*
 * Takes out of the requests for speech the one whose text the speech worker has prepared, together
 * with those before it, into `current`. A request tells its text (`source`) and what became of it
 * (`prepared`). Without one of that text nothing is changed.
 */
template <typename Request>
void takePreparedRequest(QList<Request>& requests, const QString& source,
                         const std::shared_ptr<const SpeechText>& prepared, Request& current)
{
    // Newest first: older requests with the same text were dropped by the queue.
    for (qsizetype i = requests.size() - 1; i >= 0; --i) {
        if (requests.at(i).source != source)
            continue;
        current = requests.at(i);
        current.prepared = prepared;
        requests.remove(0, i + 1);
        return;
    }
}

#endif

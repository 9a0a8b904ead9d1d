#ifndef OCRHOST_H
#define OCRHOST_H

#include <QByteArray>
#include <QString>

/* What differs between recognition engines: where their models are, and that a scripted one has to
 * be told what stands on the next picture. */
namespace ocrhost {

QByteArray dataFolder();
void nextPictureReads(const QString& text);

} // namespace ocrhost

#endif

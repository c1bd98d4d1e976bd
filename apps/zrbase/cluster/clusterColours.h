#ifndef ZRBASE_APPS_CLUSTER_CLUSTERCOLOURS_H
#define ZRBASE_APPS_CLUSTER_CLUSTERCOLOURS_H

#include <QColor>
#include <cstddef>

/// The colour of one of so many clusters.
///
/// Up to twelve have a palette that differs in lightness as well as hue; of more, clusters next to
/// each other in number have hues far apart.
QColor clusterColour(std::size_t cluster, std::size_t clusterCount);

#endif  // ZRBASE_APPS_CLUSTER_CLUSTERCOLOURS_H

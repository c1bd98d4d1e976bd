#ifndef ZRBASE_CLUSTERING_RABRIOL_H
#define ZRBASE_CLUSTERING_RABRIOL_H

/// @file
/// Searches for k centers of least distortion: the frame, Rabriol, and the four strategies.

#include <zrBase/clustering/RabriolEZ_Hybrid.h>
#include <zrBase/clustering/RabriolHybrid.h>
#include <zrBase/clustering/RabriolLloyds.h>
#include <zrBase/clustering/RabriolSwap.h>
#include <zrBase/clustering/searchFrame.h>

#endif  // ZRBASE_CLUSTERING_RABRIOL_H

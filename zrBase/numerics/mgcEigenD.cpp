#include <zrBase/numerics/mgcEigenD.h>

#include <zrBase/numerics/internal/symmetricEigenSolverMembers.h>

template class symmetricEigenSolver<mgcEigenD>;

mgcEigenD::mgcEigenD(int size) : symmetricEigenSolver<mgcEigenD>(size) {}

mgcEigenD::~mgcEigenD() = default;

// Kept on purpose (KeptReportLeavesTheErrorWord): unlike mgcEigen::Report it does not clear the
// word. Callers read in it whether any plane fit of a whole run has failed.
void mgcEigenD::Report(std::ostream&) {}

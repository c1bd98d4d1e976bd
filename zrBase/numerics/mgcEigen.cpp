#include <zrBase/numerics/mgcEigen.h>

#include <zrBase/numerics/internal/symmetricEigenSolverMembers.h>

template class symmetricEigenSolver<mgcEigen>;

mgcEigen::mgcEigen(int size) : symmetricEigenSolver<mgcEigen>(size) {}

mgcEigen::~mgcEigen() = default;

// Kept on purpose (KeptReportClearsWithoutWriting): nothing is reported, the flags just go. Callers
// call it with whatever stream they have at hand to begin anew. mgcEigenD::Report does not clear.
void mgcEigen::Report(std::ostream&) { error = 0; }

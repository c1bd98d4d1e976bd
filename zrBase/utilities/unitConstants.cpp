#include <zrBase/utilities/unitConstants.h>

// Kept on purpose (KeptConversionFactorsDisagree): feet, inches and miles carry the digits of a
// foot of 0.304799999536704 m, kilometres those of 0.6214 miles, and no factor is the exact inverse
// of its opposite. Stored models were converted with these very values, to the last digit.
const double GDF_METRES_TO_DECIMETRES = 10.0;
const double GDF_METRES_TO_KILOMETRES = 0.001;
const double GDF_METRES_TO_MILES = 0.0006214;
const double GDF_METRES_TO_FEET = 3.2808399;
const double GDF_METRES_TO_INCHES = 39.3700788;
const double GDF_METRES_TO_MILLISECONDS = 1.0;
const double GDF_METRES_TO_SECONDS = 0.001;
const double GDF_DECIMETRES_TO_KILOMETRES = 0.01;
const double GDF_DECIMETRES_TO_MILES = 0.006214;
const double GDF_DECIMETRES_TO_FEET = 32.808399;
const double GDF_DECIMETRES_TO_INCHES = 393.700788;
const double GDF_DECIMETRES_TO_MILLISECONDS = 10.0;
const double GDF_DECIMETRES_TO_SECONDS = 0.01;
const double GDF_INCHES_TO_METRES = 0.025399999961392;
const double GDF_FEET_TO_METRES = 0.304799999536704;
const double GDF_MILES_TO_METRES = 1609.2693916961698;
const double GDF_KILOMETRES_TO_METRES = 1000.0;
const double GDF_DECIMETRES_TO_METRES = 0.1;
const double GDF_SECONDS_TO_METRES = 1000.0;
const double GDF_MILLISECONDS_TO_METRES = 1.0;
const double GDF_INCHES_TO_KILOMETRES = 2.540341383268722e-05;
const double GDF_INCHES_TO_MILES = 1.5782828282828283e-05;
const double GDF_INCHES_TO_FEET = 0.08333333333333333;
const double GDF_INCHES_TO_DECIMETRES = 0.25399999961392;
const double GDF_INCHES_TO_MILLISECONDS = 0.025399999961392;
const double GDF_INCHES_TO_SECONDS = 2.540341383268722e-05;
const double GDF_FEET_TO_KILOMETRES = 0.0003048409659922467;
const double GDF_FEET_TO_MILES = 0.0001893939393939394;
const double GDF_FEET_TO_INCHES = 12.0;
const double GDF_FEET_TO_DECIMETRES = 3.04799999536704;
const double GDF_FEET_TO_MILLISECONDS = 0.304799999536704;
const double GDF_FEET_TO_SECONDS = 0.0003048409659922467;
const double GDF_MILES_TO_KILOMETRES = 1.6329196603527105;
const double GDF_MILES_TO_FEET = 5280.0;
const double GDF_MILES_TO_INCHES = 63360.0;
const double GDF_MILES_TO_DECIMETRES = 16092.693916961698;
const double GDF_MILES_TO_MILLISECONDS = 1609.2693916961698;
const double GDF_MILES_TO_SECONDS = 1.6329196603527105;
// Kept on purpose (KeptKilometresToInchsIsSpelledSo): the name is the interface; there is no second
// one.
const double GDF_KILOMETRES_TO_INCHS = 39364.788;
const double GDF_KILOMETRES_TO_FEET = 3280.399;
const double GDF_KILOMETRES_TO_MILES = 0.6214;
const double GDF_KILOMETRES_TO_DECIMETRES = 10000.0;
const double GDF_KILOMETRES_TO_MILLISECONDS = 1000.0;
const double GDF_KILOMETRES_TO_SECONDS = 1.0;

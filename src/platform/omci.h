/** @file
 * The serial number of an ONU as the management protocol carries it. */
#ifndef OMCI_H
#define OMCI_H

/** Eight bytes, as they come from the ONU. */
struct _OMCI_PHYSICAL_SN_ {
  unsigned char vendor_id[4]; /**< four characters, no terminator */
  unsigned char serial[4];    /**< in the order of the protocol */
};

#endif  // OMCI_H

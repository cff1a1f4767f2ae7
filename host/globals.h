/// The host's own records. They belong to the host library and are set when a flow or a dataset opens.
#ifndef GLOBALS_H
#define GLOBALS_H

/// The run-time record of the data at hand.
struct GlobalRuntime {
    float samprat;  ///< sample interval in ms
    int numsmp;
    int ipsort;
    int maxdtr;  ///< maximum traces per ensemble
    int idtyp;
    int nth;  ///< header words per trace
    int mode;
    int iounit;
    int ipkey;  ///< counted from 1
    int iskey;  ///< counted from 1
    int idate;
    int idomain;
};

/// Positions of the standard words in a trace header, counted from 1; 0 where the header has no such word.
struct StdHdr {
    int ichan, ioffset, iaoffset, iffid, isource, isou_sloc, isou_x, isou_y, isou_elev, irec_sloc, isrf_sloc, irec_x,
        irec_y, irec_elev, icdp, icdp_sloc, icdp_x, icdp_y, icdp_elev, icdp_nfld, itot_stat, ina_stat, irec_stat,
        isou_stat, iseqno, iend_ens, ilseg_end, ilseg_seq, ieoj, itraceno, itrc_type, itlive_s, itfull_s, itfull_e,
        itlive_e, ilen_surg, itr_fold, idepth, iuphole, irec_h2od, isou_h2od, inmo_stat, ifnl_stat, iseq_disk, ir_line,
        iofb_cntr, iofb_no, iline_no, iiline_no, ixline_no, idiskiter, is_line, islc_time, ifb_pick, iif_flag, iif_end,
        isou_matc, isrf_matc, ivelocity, ieta;
};

extern GlobalRuntime globalRuntime;
extern StdHdr stdHdr;

#endif

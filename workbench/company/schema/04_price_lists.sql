-- Price lists. Every row holds a price and a first discount with their validity;
-- FLGUSODECOR 1 marks rows kept for a change of price still to come.

CREATE TABLE MG44_PARMAGLIST (
    MG44_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG44_FLGVENACQ           smallint      NOT NULL,   -- 0 sale, 1 purchase
    MG44_NUMLIST             int           NOT NULL,
    MG44_DESCLIST            varchar(40)   NULL,
    MG44_VALUTA_CG08         varchar(4)    NULL,
    MG44_FLGIVACOMPR         smallint      NULL,
    PRIMARY KEY (MG44_DITTA_CG18, MG44_FLGVENACQ, MG44_NUMLIST)
)
GO

-- Article price lists, in general (LI10_INDTIPOLIS 0, no deposit) and by deposit (1).
CREATE TABLE LI10_LISTARTIC (
    LI10_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI10_DITTA_CG18          decimal(5,0)  NULL,
    LI10_CODART_MG66         varchar(15)   NULL,
    LI10_OPZIONE_MG5E        varchar(15)   NULL DEFAULT '',
    LI10_NUMLIST             int           NULL,
    LI10_INDTIPOLIS          smallint      NULL DEFAULT 0,
    LI10_DEPOS_MG58          varchar(4)    NULL DEFAULT '',
    LI10_FLGVENDACQ          smallint      NULL DEFAULT 0,   -- 0 sale, 1 purchase
    LI10_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI10_CODICE_CG08         varchar(4)    NULL,
    LI10_DATAINIZIOVAL       datetime      NULL,
    LI10_DATAFINEVAL         datetime      NULL,
    LI10_PREZZO              decimal(18,6) NULL,
    LI10_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI10_LISTARTIC_CHIAVE ON LI10_LISTARTIC (LI10_DITTA_CG18, LI10_CODART_MG66)
GO

-- Article prices by macro-area, area and zone.
CREATE TABLE LI12_LISTARTZONE (
    LI12_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI12_DITTA_CG18          decimal(5,0)  NULL,
    LI12_CODART_MG66         varchar(15)   NULL,
    LI12_OPZIONE_MG5E        varchar(15)   NULL DEFAULT '',
    LI12_MACROAREA_MG07      varchar(3)    NULL,
    LI12_AREA_MG08           varchar(3)    NULL DEFAULT '',
    LI12_ZONA_MG09           varchar(3)    NULL DEFAULT '',
    LI12_FLGVENDACQ          smallint      NULL DEFAULT 0,
    LI12_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI12_CODICE_CG08         varchar(4)    NULL,
    LI12_DATAINIZIOVAL       datetime      NULL,
    LI12_DATAFINEVAL         datetime      NULL,
    LI12_PREZZO              decimal(18,6) NULL,
    LI12_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI12_LISTARTZONE_CHIAVE ON LI12_LISTARTZONE (LI12_DITTA_CG18, LI12_CODART_MG66)
GO

-- Article prices by macro-category, category and sub-category.
CREATE TABLE LI13_LISTARTCAT (
    LI13_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI13_DITTA_CG18          decimal(5,0)  NULL,
    LI13_CODART_MG66         varchar(15)   NULL,
    LI13_OPZIONE_MG5E        varchar(15)   NULL DEFAULT '',
    LI13_MACROCAT_MG10       varchar(3)    NULL,
    LI13_CATEG_MG11          varchar(3)    NULL DEFAULT '',
    LI13_SOTTCAT_MG12        varchar(3)    NULL DEFAULT '',
    LI13_FLGVENDACQ          smallint      NULL DEFAULT 0,
    LI13_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI13_CODICE_CG08         varchar(4)    NULL,
    LI13_DATAINIZIOVAL       datetime      NULL,
    LI13_DATAFINEVAL         datetime      NULL,
    LI13_PREZZO              decimal(18,6) NULL,
    LI13_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI13_LISTARTCAT_CHIAVE ON LI13_LISTARTCAT (LI13_DITTA_CG18, LI13_CODART_MG66)
GO

-- Article prices by quantity step.
CREATE TABLE LI14_LISTARTQTA (
    LI14_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI14_DITTA_CG18          decimal(5,0)  NULL,
    LI14_CODART_MG66         varchar(15)   NULL,
    LI14_OPZIONE_MG5E        varchar(15)   NULL DEFAULT '',
    LI14_NUMLISTUTIL         int           NULL,
    LI14_DAQTA               decimal(18,3) NULL,
    LI14_FLGVENDACQ          smallint      NULL DEFAULT 0,
    LI14_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI14_CODICE_CG08         varchar(4)    NULL,
    LI14_DATAINIZIOVAL       datetime      NULL,
    LI14_DATAFINEVAL         datetime      NULL,
    LI14_PREZZO              decimal(18,6) NULL,
    LI14_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI14_LISTARTQTA_CHIAVE ON LI14_LISTARTQTA (LI14_DITTA_CG18, LI14_CODART_MG66)
GO

-- Prices of an article for a customer by quantity step.
CREATE TABLE LI15_LISTARTCFQTA (
    LI15_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI15_DITTA_CG18          decimal(5,0)  NULL,
    LI15_TIPOCF_CG44         smallint      NULL DEFAULT 0,
    LI15_CLIFOR_CG44         int           NULL,
    LI15_CODART_MG66         varchar(15)   NULL,
    LI15_OPZIONE_MG5E        varchar(15)   NULL DEFAULT '',
    LI15_DAQTA               decimal(18,3) NULL,
    LI15_FLGLIST             smallint      NULL,
    LI15_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI15_CODICE_CG08         varchar(4)    NULL,
    LI15_DATAINIZIOVAL       datetime      NULL,
    LI15_DATAFINEVAL         datetime      NULL,
    LI15_PREZZO              decimal(18,6) NULL,
    LI15_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI15_LISTARTCFQTA_CHIAVE ON LI15_LISTARTCFQTA (LI15_DITTA_CG18, LI15_CLIFOR_CG44)
GO

-- Prices of an article for a customer.
CREATE TABLE LI16_LISTARTCF (
    LI16_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI16_DITTA_CG18          decimal(5,0)  NULL,
    LI16_TIPOCF_CG44         smallint      NULL DEFAULT 0,
    LI16_CLIFOR_CG44         int           NULL,
    LI16_CODART_MG66         varchar(15)   NULL,
    LI16_OPZIONE_MG5E        varchar(15)   NULL DEFAULT '',
    LI16_FLGLIST             smallint      NULL,
    LI16_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI16_CODICE_CG08         varchar(4)    NULL,
    LI16_DATAINIZIOVAL       datetime      NULL,
    LI16_DATAFINEVAL         datetime      NULL,
    LI16_PREZZO              decimal(18,6) NULL,
    LI16_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI16_LISTARTCF_CHIAVE ON LI16_LISTARTCF (LI16_DITTA_CG18, LI16_CLIFOR_CG44)
GO

-- Prices of a family path for a customer.
CREATE TABLE LI18_LISTCFCODP (
    LI18_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI18_DITTA_CG18          decimal(5,0)  NULL,
    LI18_TIPOCF_CG44         smallint      NULL DEFAULT 0,
    LI18_CLIFOR_CG44         int           NULL,
    LI18_AFAM_MG53           varchar(15)   NULL,
    LI18_ASFAM_MG54          varchar(15)   NULL DEFAULT '',
    LI18_AGRUP_MG55          varchar(15)   NULL DEFAULT '',
    LI18_ASGRUP_MG56         varchar(15)   NULL DEFAULT '',
    LI18_FLGLIST             smallint      NULL,
    LI18_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI18_CODICE_CG08         varchar(4)    NULL,
    LI18_DATAINIZIOVAL       datetime      NULL,
    LI18_DATAFINEVAL         datetime      NULL,
    LI18_PREZZO              decimal(18,6) NULL,
    LI18_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI18_LISTCFCODP_CHIAVE ON LI18_LISTCFCODP (LI18_DITTA_CG18, LI18_CLIFOR_CG44)
GO

-- Prices of a family path.
CREATE TABLE LI33_LISTCODP (
    LI33_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI33_DITTA_CG18          decimal(5,0)  NULL,
    LI33_AFAM_MG53           varchar(15)   NULL,
    LI33_ASFAM_MG54          varchar(15)   NULL DEFAULT '',
    LI33_AGRUP_MG55          varchar(15)   NULL DEFAULT '',
    LI33_ASGRUP_MG56         varchar(15)   NULL DEFAULT '',
    LI33_NUMLIST             int           NULL,
    LI33_INDTIPOLIS          smallint      NULL DEFAULT 0,
    LI33_FLGVENDACQ          smallint      NULL DEFAULT 0,
    LI33_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI33_CODICE_CG08         varchar(4)    NULL,
    LI33_DATAINIZIOVAL       datetime      NULL,
    LI33_DATAFINEVAL         datetime      NULL,
    LI33_PREZZO              decimal(18,6) NULL,
    LI33_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI33_LISTCODP_CHIAVE ON LI33_LISTCODP (LI33_DITTA_CG18, LI33_AFAM_MG53)
GO

-- Prices of a family path by quantity step.
CREATE TABLE LI34_LISTCODPQTA (
    LI34_ID                  int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    LI34_DITTA_CG18          decimal(5,0)  NULL,
    LI34_FAM_MG53            varchar(15)   NULL,
    LI34_SFAM_MG54           varchar(15)   NULL DEFAULT '',
    LI34_GRUP_MG55           varchar(15)   NULL DEFAULT '',
    LI34_SGRUP_MG56          varchar(15)   NULL DEFAULT '',
    LI34_DAQTA               decimal(18,3) NULL,
    LI34_FLGVENDACQ          smallint      NULL DEFAULT 0,
    LI34_FLGUSODECOR         smallint      NULL DEFAULT 0,
    LI34_CODICE_CG08         varchar(4)    NULL,
    LI34_DATAINIZIOVAL       datetime      NULL,
    LI34_DATAFINEVAL         datetime      NULL,
    LI34_PREZZO              decimal(18,6) NULL,
    LI34_SC1PER              decimal(5,2)  NULL
)
GO

CREATE INDEX LI34_LISTCODPQTA_CHIAVE ON LI34_LISTCODPQTA (LI34_DITTA_CG18, LI34_FAM_MG53)
GO

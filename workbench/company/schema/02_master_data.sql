-- Master data: companies, customers and suppliers, articles, deposits, documents.

CREATE TABLE CG08_TABVALUTE (
    CG08_CODICE              varchar(4)    NOT NULL PRIMARY KEY,
    CG08_DESCR               varchar(40)   NULL,
    CG08_NUMDEC              smallint      NULL,
    CG08_CAMBIO              decimal(18,6) NULL
)
GO

CREATE TABLE CG18_DITTE (
    CG18_CODICE              decimal(5,0)  NOT NULL PRIMARY KEY,
    CG18_RAGSOC              varchar(60)   NULL
)
GO

-- The registry of names, shared by all companies.
CREATE TABLE CG16_RAGSOANAG (
    CG16_CODICE              int           NOT NULL PRIMARY KEY,
    CG16_RAGSOANAG           varchar(60)   NULL,
    CG16_NOME                varchar(40)   NULL,
    CG16_COGNOME             varchar(40)   NULL,
    CG16_PARTIVA             varchar(16)   NULL,
    CG16_CODFISC             varchar(16)   NULL,
    CG16_INDIRIZZO           varchar(40)   NULL,
    CG16_INDIRIZZO2          varchar(40)   NULL,
    CG16_CAP                 varchar(8)    NULL,
    CG16_CITTA               varchar(40)   NULL,
    CG16_PROV                varchar(2)    NULL,
    CG16_TELNUM              varchar(20)   NULL,
    CG16_EMAIL               varchar(80)   NULL,
    CG16_DATAULTMOD          datetime      NULL
)
GO

CREATE TABLE CG44_CLIFOR (
    CG44_DITTA_CG18          decimal(5,0)  NOT NULL,
    CG44_TIPOCF              smallint      NOT NULL DEFAULT 0,   -- 0 customer, 1 supplier
    CG44_CLIFOR              int           NOT NULL,
    CG44_IDCLIFOR            int           NULL,
    CG44_CODICE_CG16         int           NULL,
    CG44_NUMLIST_MG44        int           NULL,
    PRIMARY KEY (CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR)
)
GO

CREATE INDEX CG44_CLIFOR_CG16 ON CG44_CLIFOR (CG44_CODICE_CG16)
GO

CREATE TABLE MG2A_DESTINAZ (
    MG2A_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG2A_TIPOCF_CG44         smallint      NOT NULL DEFAULT 0,
    MG2A_CLIFOR_CG44         int           NOT NULL,
    MG2A_CODDEST             smallint      NOT NULL,   -- 1 is the usual delivery address
    MG2A_NOME                varchar(40)   NULL,
    MG2A_COGNOME             varchar(40)   NULL,
    MG2A_RAGSOC              varchar(60)   NULL,
    MG2A_INDIRIZZO           varchar(40)   NULL,
    MG2A_INDIRIZZO2          varchar(40)   NULL,
    PRIMARY KEY (MG2A_DITTA_CG18, MG2A_TIPOCF_CG44, MG2A_CLIFOR_CG44, MG2A_CODDEST)
)
GO

CREATE TABLE MG17_AGENTI (
    MG17_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG17_CODAGENTE           varchar(5)    NOT NULL,
    MG17_DESCRAGENTE         varchar(40)   NULL,
    PRIMARY KEY (MG17_DITTA_CG18, MG17_CODAGENTE)
)
GO

-- A customer's place in every classification. RAGGCRF3 is the third grouping's real name.
CREATE TABLE MG19_CLASSCLIFOR (
    MG19_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG19_TIPOCF_CG44         smallint      NOT NULL DEFAULT 0,
    MG19_CLIFOR_CG44         int           NOT NULL,
    MG19_MACROAREA           varchar(3)    NULL,
    MG19_AREA                varchar(3)    NULL,
    MG19_ZONA                varchar(3)    NULL,
    MG19_MACROCAT            varchar(3)    NULL,
    MG19_CATEG               varchar(3)    NULL,
    MG19_SOTTOCAT            varchar(3)    NULL,
    MG19_RAGGRCF1            varchar(3)    NULL,
    MG19_RAGGRCF2            varchar(3)    NULL,
    MG19_RAGGCRF3            varchar(3)    NULL,
    MG19_AGENTE_MG17         varchar(5)    NULL,
    PRIMARY KEY (MG19_DITTA_CG18, MG19_TIPOCF_CG44, MG19_CLIFOR_CG44)
)
GO

CREATE TABLE MG66_ANAGRART (
    MG66_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG66_CODART              varchar(15)   NOT NULL,
    MG66_FAM_MG53            varchar(15)   NULL,
    MG66_SFAM_MG54           varchar(15)   NULL,
    MG66_GRUPPO_MG55         varchar(15)   NULL,
    MG66_SGRUPPO_MG56        varchar(15)   NULL,
    MG66_MARCA_MG64          varchar(15)   NULL,
    MG66_GRUSTAT1_MG74       varchar(15)   NULL,
    MG66_GRUSTAT2_MG75       varchar(15)   NULL,
    MG66_GRUSTAT3_MG76       varchar(15)   NULL,
    MG66_GRUSTAT4_MG77       varchar(15)   NULL,
    MG66_INDSTATO_MG6W       smallint      NULL,
    MG66_CLASC_MG63          varchar(15)   NULL,
    MG66_UNMIS               varchar(3)    NULL,
    MG66_DATAULTMOD          datetime      NULL,
    PRIMARY KEY (MG66_DITTA_CG18, MG66_CODART)
)
GO

-- One row an article, option and language; language '' is the company's own.
CREATE TABLE MG87_ARTDESC (
    MG87_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG87_CODART_MG66         varchar(15)   NOT NULL,
    MG87_OPZIONE_MG5E        varchar(15)   NOT NULL DEFAULT '',
    MG87_LINGUA_MG52         varchar(3)    NOT NULL DEFAULT '',
    MG87_DESCART             varchar(60)   NULL,
    MG87_DESCESTESA          varchar(255)  NULL,
    PRIMARY KEY (MG87_DITTA_CG18, MG87_CODART_MG66, MG87_OPZIONE_MG5E, MG87_LINGUA_MG52)
)
GO

CREATE TABLE MG5E_OPZIONI (
    MG5E_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG5E_OPZIONE             varchar(15)   NOT NULL,
    MG5E_DESCR               varchar(40)   NULL,
    PRIMARY KEY (MG5E_DITTA_CG18, MG5E_OPZIONE)
)
GO

CREATE TABLE MG58_DEPOSITI (
    MG58_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG58_CODDEP              varchar(4)    NOT NULL,
    MG58_DESCRDEP            varchar(40)   NULL,
    MG58_INDIDEP             varchar(40)   NULL,
    MG58_CAPDEP              varchar(8)    NULL,
    MG58_LOCDEP              varchar(40)   NULL,
    MG58_PROVDEP             varchar(2)    NULL,
    MG58_TELNUMDEP           varchar(20)   NULL,
    MG58_FAXNUMDEP           varchar(20)   NULL,
    PRIMARY KEY (MG58_DITTA_CG18, MG58_CODDEP)
)
GO

CREATE TABLE MG70_GIACDEP (
    MG70_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG70_CODART_MG66         varchar(15)   NOT NULL,
    MG70_OPZIONE_MG5E        varchar(15)   NOT NULL DEFAULT '',
    MG70_DEPOS_MG58          varchar(4)    NOT NULL,
    MG70_QTAGIAC             decimal(18,3) NULL,   -- in stock
    MG70_QTAIMP              decimal(18,3) NULL,   -- reserved for customers
    MG70_QTAORD              decimal(18,3) NULL,   -- on order
    PRIMARY KEY (MG70_DITTA_CG18, MG70_CODART_MG66, MG70_OPZIONE_MG5E, MG70_DEPOS_MG58)
)
GO

CREATE TABLE MG72_APPLICART (
    MG72_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG72_CODART_MG66         varchar(15)   NOT NULL,
    MG72_CODAPPLIC_MG57      varchar(5)    NOT NULL,
    PRIMARY KEY (MG72_DITTA_CG18, MG72_CODART_MG66, MG72_CODAPPLIC_MG57)
)
GO

CREATE TABLE MG73_ARTCLIFOR (
    MG73_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG73_TIPOCF_CG44         smallint      NOT NULL,
    MG73_CLIFOR_CG44         int           NOT NULL,
    MG73_CODART_MG66         varchar(15)   NOT NULL,
    MG73_CODARTCF            varchar(30)   NULL,
    PRIMARY KEY (MG73_DITTA_CG18, MG73_TIPOCF_CG44, MG73_CLIFOR_CG44, MG73_CODART_MG66)
)
GO

CREATE TABLE PD18_ARTPROD (
    PD18_DITTA_CG18          decimal(5,0)  NOT NULL,
    PD18_CODART_MG66         varchar(15)   NOT NULL,
    PD18_INDPROVENIENZA      smallint      NULL,   -- 0 bought, 1 made, 2 made by a supplier
    PD18_INDTIPOPROD         smallint      NULL,   -- 0 finished, 1 half-finished, 2 raw
    PRIMARY KEY (PD18_DITTA_CG18, PD18_CODART_MG66)
)
GO

CREATE TABLE MG36_DOCUMENTI (
    MG36_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG36_CODDOCUM            varchar(5)    NOT NULL,
    MG36_DESCRDOC            varchar(40)   NULL,
    PRIMARY KEY (MG36_DITTA_CG18, MG36_CODDOCUM)
)
GO

-- The company's customisation of a document type.
CREATE TABLE MG3G_DOCDITTA (
    MG3G_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG3G_CODDOCUM_MG36       varchar(5)    NOT NULL,
    MG3G_DEPDEFAULT_MG58     varchar(4)    NULL,
    PRIMARY KEY (MG3G_DITTA_CG18, MG3G_CODDOCUM_MG36)
)
GO

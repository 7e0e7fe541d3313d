-- The connector's own tables: profile, parameters, activities, categories,
-- price slots, deposits and discount rules.

CREATE TABLE GM01_ATTIVITA (
    GM01_IDAPPLICAZIONE      smallint      NOT NULL,
    GM01_IDATTIVITA          int           NOT NULL,
    GM01_DESCRIZIONE         varchar(60)   NULL,
    GM01_INDFUNZIONE         smallint      NULL,   -- 1 master data, 2 data sent by differences, 3 import
    GM01_FLGDIFF             smallint      NULL,
    PRIMARY KEY (GM01_IDAPPLICAZIONE, GM01_IDATTIVITA)
)
GO

CREATE TABLE GM02_ATTIVITADITTA (
    GM02_DITTA_CG18          decimal(5,0)  NOT NULL,
    GM02_IDAPPLICAZIONE_GM01 smallint      NOT NULL,
    GM02_IDATTIVITA_GM01     int           NOT NULL,
    GM02_FLGDIFF             smallint      NULL,   -- NULL: as the activity itself says
    PRIMARY KEY (GM02_DITTA_CG18, GM02_IDAPPLICAZIONE_GM01, GM02_IDATTIVITA_GM01)
)
GO

CREATE TABLE GM03_DISPOSITIVI (
    GM03_IDDISPOSITIVO       decimal(18,0) IDENTITY(1,1) NOT NULL PRIMARY KEY,
    GM03_DITTA_CG18          decimal(5,0)  NULL,
    GM03_CODICEDISPOSITIVO   int           NULL,
    GM03_DESCRIZIONE         varchar(60)   NULL,
    GM03_NOTE                varchar(255)  NULL,
    GM03_INDTIPO             smallint      NULL,
    GM03_FLGTV               smallint      NULL,
    GM03_FLGRO               smallint      NULL,
    GM03_FLGENABLED          smallint      NULL,
    GM03_IDAPPLICAZIONE      smallint      NULL
)
GO

CREATE TABLE GM04_PARAMETRITVRO (
    GM04_IDDISPOSITIVO_GM03  decimal(18,0) NOT NULL,
    GM04_DITTA_CG18          decimal(5,0)  NOT NULL,
    GM04_INDSINCRO           smallint      NULL,
    GM04_PATHEXPORT          varchar(255)  NULL,
    GM04_PATHIMPORT          varchar(255)  NULL,
    GM04_PATHBACKUP          varchar(255)  NULL,
    GM04_PATHLOG             varchar(255)  NULL,
    GM04_CODDOCWEB_MG36      varchar(5)    NULL,
    GM04_DEPDOCWEB_MG58      varchar(4)    NULL,
    GM04_DEPGIACENZE_MG58    varchar(4)    NULL,
    GM04_LASTSYNCCLI         datetime      NULL,
    GM04_WHERESELARTICOLI    varchar(max)  NULL,
    GM04_WHERECLIFOR         varchar(max)  NULL,
    GM04_FTPADDRESS          varchar(255)  NULL,
    GM04_FTPUSER             varchar(60)   NULL,
    GM04_FTPPWD              varchar(60)   NULL,
    GM04_FLGGESTPREZZI       smallint      NULL,
    GM04_FLGGESTSCONTI       smallint      NULL,
    GM04_FLGGESTVARIANTI     smallint      NULL,
    GM04_FLGGESTCESSIONARI   smallint      NULL,
    GM04_FLGGESTLOTTI        smallint      NULL,
    GM04_INDSELCLIENTI       smallint      NULL,
    GM04_INDDATAREGINCASSO   smallint      NULL,
    GM04_INDMODRECUPERO      smallint      NULL,
    GM04_INDDESTIN           smallint      NULL,
    GM04_INDTIPOCOSTOART     smallint      NULL,
    GM04_LISTCOSTOART_LI10   int           NULL,
    GM04_INDSTAMPAPREZZI     smallint      NULL,
    GM04_NUMNOTECLIENTI      int           NULL,
    GM04_INDTIPOGIACENZA     smallint      NULL,
    GM04_INDTIPODEPIMP       smallint      NULL,
    GM04_INDESTRIMG          smallint      NULL,
    PRIMARY KEY (GM04_IDDISPOSITIVO_GM03, GM04_DITTA_CG18)
)
GO

CREATE TABLE GM08_ATTIVITADISPO (
    GM08_IDDISPOSITIVO_GM03  decimal(18,0) NOT NULL,
    GM08_TIPOSINCRO_GM13     smallint      NOT NULL,
    GM08_IDATTIVITA_GM01     int           NOT NULL,
    GM08_FLGENABLED          smallint      NULL,
    GM08_LASTELAB            datetime      NULL,
    GM08_FLGDIFF             smallint      NULL,
    PRIMARY KEY (GM08_IDDISPOSITIVO_GM03, GM08_TIPOSINCRO_GM13, GM08_IDATTIVITA_GM01)
)
GO

CREATE TABLE GM13_TIPISINCRO (
    GM13_IDAPPLICAZIONE      smallint      NOT NULL,
    GM13_CODICE              smallint      NOT NULL,
    GM13_DESCRIZIONE         varchar(60)   NULL,
    PRIMARY KEY (GM13_IDAPPLICAZIONE, GM13_CODICE)
)
GO

CREATE TABLE GM19_DETTCONF (
    GM19_IDDISPOSITIVO_GM03  decimal(18,0) NOT NULL,
    GM19_PROG                smallint      NOT NULL,
    GM19_INDENTITA           smallint      NOT NULL,   -- 1 customers, 3 articles
    GM19_INDCLASSIF          smallint      NULL,
    GM19_CODCLASSIF          varchar(20)   NULL,
    GM19_DESCRCLASSIF        varchar(60)   NULL,
    PRIMARY KEY (GM19_IDDISPOSITIVO_GM03, GM19_PROG, GM19_INDENTITA)
)
GO

CREATE TABLE GM23_CLASSIFICAZIONI (
    GM23_INDENTITA           smallint      NOT NULL,   -- 1 customers, 2 suppliers, 3 articles
    GM23_CODICE              smallint      NOT NULL,
    GM23_DESCRIZIONE         varchar(60)   NULL,
    GM23_INDCODAGG           smallint      NULL,
    GM23_SEQUENZA            int           NULL,
    GM23_FLGDISABLED         smallint      NULL,
    PRIMARY KEY (GM23_INDENTITA, GM23_CODICE)
)
GO

CREATE TABLE GM56_KBDEPOSITI (
    GM56_IDDISPOSITIVO_GM03  decimal(18,0) NOT NULL,
    GM56_DEPGIACENZE_MG58    varchar(4)    NOT NULL,
    GM56_FLGPREFCOSTOART     smallint      NULL,
    PRIMARY KEY (GM56_IDDISPOSITIVO_GM03, GM56_DEPGIACENZE_MG58)
)
GO

CREATE TABLE GM57_KBLISTINI (
    GM57_IDDISPOSITIVO_GM03  decimal(18,0) NOT NULL,
    GM57_CODPREZZO           smallint      NOT NULL,
    GM57_INDTIPO             smallint      NULL,
    GM57_NUMLIST_LI10        int           NULL,
    GM57_CATEGORIA           varchar(3)    NULL,
    GM57_DEPGIACENZE_MG58    varchar(4)    NULL,
    GM57_QUANTITA            decimal(18,3) NULL,
    GM57_CLIFOR_CG44         int           NULL,
    GM57_FLGINCLUDISCONTI    smallint      NULL,
    GM57_FLGATTIVO           smallint      NULL,
    PRIMARY KEY (GM57_IDDISPOSITIVO_GM03, GM57_CODPREZZO)
)
GO

CREATE TABLE GM61_KBDISCOUNTRULES (
    GM61_ID                    int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    GM61_DITTA_CG18            decimal(5,0)  NULL,
    GM61_INDTIPOLISTINO        smallint      NULL,
    GM61_DESCLISTCORVANE       varchar(50)   NULL,
    GM61_ATTIVA                smallint      NULL,
    GM61_CODCLIENTE            int           NULL,
    GM61_DESC1                 varchar(100)  NULL,
    GM61_DESC2                 varchar(200)  NULL,
    GM61_CODART_MG66           varchar(15)   NULL,
    GM61_OPZIONE_MG5E          varchar(15)   NULL,
    GM61_FAM_MG53              varchar(15)   NULL,
    GM61_SFAM_MG54             varchar(15)   NULL,
    GM61_GRUPPO_MG55           varchar(15)   NULL,
    GM61_SGRUPPO_MG56          varchar(15)   NULL,
    GM61_DATAINIZIO            datetime      NULL,
    GM61_DATAFINE              datetime      NULL,
    GM61_FLGSCONTISUPRZ        smallint      NULL,
    GM61_FLGGRIGLIASCONTI      smallint      NULL,
    GM61_NOMEREGOLA            varchar(100)  NULL,
    GM61_TIPOSCONTO            smallint      NULL,
    GM61_VALORESCONTO          decimal(18,6) NULL,
    GM61_TIPOGRIGLIASCONTO     smallint      NULL,
    GM61_GRIGLIAVALINF0        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF1        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF2        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF3        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF4        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF5        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF6        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF7        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF8        decimal(18,6) NULL,
    GM61_GRIGLIAVALINF9        decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC0      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC1      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC2      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC3      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC4      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC5      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC6      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC7      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC8      decimal(18,6) NULL,
    GM61_GRIGLIAVALORESC9      decimal(18,6) NULL,
    GM61_SC1PER                decimal(5,2)  NULL,
    GM61_PREZZOLORDO           decimal(18,6) NULL,
    GM61_PREZZONETTO           decimal(18,6) NULL,
    GM61_CAMPOCORVANE          smallint      NULL,
    GM61_FLGPRZBARRATI         smallint      NULL,
    GM61_FLGNONTRATTAREALTRISC smallint      NULL,
    GM61_FLGMONOUSO            smallint      NULL,
    GM61_INDREGOLEINCLUSIONE   smallint      NULL,
    GM61_POSIZIONE             int           NULL,
    GM61_DATAULTAGG            datetime      NULL
)
GO

CREATE INDEX GM61_KBDISCOUNTRULES_TIPO ON GM61_KBDISCOUNTRULES (GM61_DITTA_CG18, GM61_INDTIPOLISTINO)
GO

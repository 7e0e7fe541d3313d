-- Classifications of customers (areas, categories, groupings) and of articles
-- (family levels, brands, statistical groups, states, configurator).

CREATE TABLE MG07_MACROAREE (
    MG07_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG07_TIPOCF              smallint      NOT NULL,
    MG07_MACROAREA           varchar(3)    NOT NULL,
    MG07_DESCRMACROAR        varchar(40)   NULL,
    PRIMARY KEY (MG07_DITTA_CG18, MG07_TIPOCF, MG07_MACROAREA)
)
GO

CREATE TABLE MG08_AREE (
    MG08_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG08_TIPOCF_MG07         smallint      NOT NULL,
    MG08_MACROAREA_MG07      varchar(3)    NOT NULL,
    MG08_AREA                varchar(3)    NOT NULL,
    MG08_DESCRAREA           varchar(40)   NULL,
    PRIMARY KEY (MG08_DITTA_CG18, MG08_TIPOCF_MG07, MG08_MACROAREA_MG07, MG08_AREA)
)
GO

CREATE TABLE MG09_ZONE (
    MG09_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG09_TIPOCF_MG08         smallint      NOT NULL,
    MG09_MACROAREA_MG08      varchar(3)    NOT NULL,
    MG09_AREA_MG08           varchar(3)    NOT NULL,
    MG09_ZONA                varchar(3)    NOT NULL,
    MG09_DESCRZONA           varchar(40)   NULL,
    PRIMARY KEY (MG09_DITTA_CG18, MG09_TIPOCF_MG08, MG09_MACROAREA_MG08, MG09_AREA_MG08, MG09_ZONA)
)
GO

CREATE TABLE MG10_MACROCAT (
    MG10_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG10_TIPOCF              smallint      NOT NULL,
    MG10_MACROCAT            varchar(3)    NOT NULL,
    MG10_DESCRMACROCAT       varchar(40)   NULL,
    PRIMARY KEY (MG10_DITTA_CG18, MG10_TIPOCF, MG10_MACROCAT)
)
GO

CREATE TABLE MG11_CATEG (
    MG11_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG11_TIPOCF_MG10         smallint      NOT NULL,
    MG11_MACROCAT_MG10       varchar(3)    NOT NULL,
    MG11_CATEG               varchar(3)    NOT NULL,
    MG11_DESCRCAT            varchar(40)   NULL,
    PRIMARY KEY (MG11_DITTA_CG18, MG11_TIPOCF_MG10, MG11_MACROCAT_MG10, MG11_CATEG)
)
GO

CREATE TABLE MG12_SOTTOCAT (
    MG12_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG12_TIPOCF_MG11         smallint      NOT NULL,
    MG12_MACROCAT_MG11       varchar(3)    NOT NULL,
    MG12_CATEG_MG11          varchar(3)    NOT NULL,
    MG12_SOTTOCAT            varchar(3)    NOT NULL,
    MG12_DESCRSOTTOCAT       varchar(40)   NULL,
    PRIMARY KEY (MG12_DITTA_CG18, MG12_TIPOCF_MG11, MG12_MACROCAT_MG11, MG12_CATEG_MG11, MG12_SOTTOCAT)
)
GO

CREATE TABLE MG31_RAGGRCF1 (
    MG31_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG31_TIPOCF              smallint      NOT NULL,
    MG31_RAGGRCF1            varchar(3)    NOT NULL,
    MG31_DESCRAGGRCF1        varchar(40)   NULL,
    PRIMARY KEY (MG31_DITTA_CG18, MG31_TIPOCF, MG31_RAGGRCF1)
)
GO

CREATE TABLE MG32_RAGGRCF2 (
    MG32_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG32_TIPOCF              smallint      NOT NULL,
    MG32_RAGGRCF2            varchar(3)    NOT NULL,
    MG32_DESCRAGGRCF2        varchar(40)   NULL,
    PRIMARY KEY (MG32_DITTA_CG18, MG32_TIPOCF, MG32_RAGGRCF2)
)
GO

CREATE TABLE MG33_RAGGRCF3 (
    MG33_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG33_TIPOCF              smallint      NOT NULL,
    MG33_RAGGRCF3            varchar(3)    NOT NULL,
    MG33_DESCRAGGRCF3        varchar(40)   NULL,
    PRIMARY KEY (MG33_DITTA_CG18, MG33_TIPOCF, MG33_RAGGRCF3)
)
GO

CREATE TABLE MG53_FAMIGLIE (
    MG53_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG53_FAM                 varchar(15)   NOT NULL,
    MG53_DESCRFAM            varchar(40)   NULL,
    PRIMARY KEY (MG53_DITTA_CG18, MG53_FAM)
)
GO

CREATE TABLE MG54_SOTTOFAM (
    MG54_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG54_FAM_MG53            varchar(15)   NOT NULL,
    MG54_SFAM                varchar(15)   NOT NULL,
    MG54_DESCRSFAM           varchar(40)   NULL,
    PRIMARY KEY (MG54_DITTA_CG18, MG54_FAM_MG53, MG54_SFAM)
)
GO

CREATE TABLE MG55_GRUPPI (
    MG55_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG55_FAM_MG53            varchar(15)   NOT NULL,
    MG55_SFAM_MG54           varchar(15)   NOT NULL,
    MG55_GRUPPO              varchar(15)   NOT NULL,
    MG55_DESCRGRUPPO         varchar(40)   NULL,
    PRIMARY KEY (MG55_DITTA_CG18, MG55_FAM_MG53, MG55_SFAM_MG54, MG55_GRUPPO)
)
GO

CREATE TABLE MG56_SOTTOGRUPPI (
    MG56_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG56_FAM_MG53            varchar(15)   NOT NULL,
    MG56_SFAM_MG54           varchar(15)   NOT NULL,
    MG56_GRUPPO_MG55         varchar(15)   NOT NULL,
    MG56_SGRUPPO             varchar(15)   NOT NULL,
    MG56_DESCRSGRUPPO        varchar(40)   NULL,
    PRIMARY KEY (MG56_DITTA_CG18, MG56_FAM_MG53, MG56_SFAM_MG54, MG56_GRUPPO_MG55, MG56_SGRUPPO)
)
GO

CREATE TABLE MG57_APPLICAZIONI (
    MG57_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG57_CODAPPLIC           varchar(5)    NOT NULL,
    MG57_DESCRAPPLIC         varchar(40)   NULL,
    PRIMARY KEY (MG57_DITTA_CG18, MG57_CODAPPLIC)
)
GO

CREATE TABLE MG63_CLASSISC (
    MG63_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG63_CLASC               varchar(15)   NOT NULL,
    MG63_DESCRCLASC          varchar(40)   NULL,
    PRIMARY KEY (MG63_DITTA_CG18, MG63_CLASC)
)
GO

CREATE TABLE MG64_MARCHE (
    MG64_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG64_MARCA               varchar(15)   NOT NULL,
    MG64_DESCRMARCA          varchar(40)   NULL,
    PRIMARY KEY (MG64_DITTA_CG18, MG64_MARCA)
)
GO

CREATE TABLE MG74_GRUSTAT1 (
    MG74_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG74_GRUSTAT1            varchar(15)   NOT NULL,
    MG74_DESCRGRUSTAT1       varchar(40)   NULL,
    PRIMARY KEY (MG74_DITTA_CG18, MG74_GRUSTAT1)
)
GO

CREATE TABLE MG75_GRUSTAT2 (
    MG75_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG75_GRUSTAT2            varchar(15)   NOT NULL,
    MG75_DESCRGRUSTAT2       varchar(40)   NULL,
    PRIMARY KEY (MG75_DITTA_CG18, MG75_GRUSTAT2)
)
GO

CREATE TABLE MG76_GRUSTAT3 (
    MG76_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG76_GRUSTAT3            varchar(15)   NOT NULL,
    MG76_DESCRGRUSTAT3       varchar(40)   NULL,
    PRIMARY KEY (MG76_DITTA_CG18, MG76_GRUSTAT3)
)
GO

CREATE TABLE MG77_GRUSTAT4 (
    MG77_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG77_GRUSTAT4            varchar(15)   NOT NULL,
    MG77_DESCRGRUSTAT4       varchar(40)   NULL,
    PRIMARY KEY (MG77_DITTA_CG18, MG77_GRUSTAT4)
)
GO

-- The same states for every company.
CREATE TABLE MG6W_STATIART (
    MG6W_INDSTATO            smallint      NOT NULL PRIMARY KEY,
    MG6W_DESCR               varchar(40)   NULL
)
GO

-- Configurator variants; the code is the letter A and a number.
CREATE TABLE MG5F_DIMECONF (
    MG5F_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG5F_CODICEVAR           varchar(10)   NOT NULL,
    MG5F_DESCR_VAR           varchar(40)   NULL,
    PRIMARY KEY (MG5F_DITTA_CG18, MG5F_CODICEVAR)
)
GO

-- The parts of which article codes are composed.
CREATE TABLE MG6F_DIMEART (
    MG6F_DITTA_CG18          decimal(5,0)  NOT NULL,
    MG6F_PROGR               smallint      NOT NULL,
    MG6F_DESCR               varchar(40)   NULL,
    MG6F_SIZE                smallint      NULL,
    PRIMARY KEY (MG6F_DITTA_CG18, MG6F_PROGR)
)
GO

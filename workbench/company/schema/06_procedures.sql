-- Functions and procedures that the connector calls.

-- Description of a macro-category of customers (@tipocf 0) or suppliers (1).
CREATE FUNCTION dbo.FNMG10_MACROCAT (@codice varchar(3), @ditta decimal(5,0), @tipocf smallint)
RETURNS TABLE
AS
RETURN
(
    SELECT MG10_MACROCAT, MG10_DESCRMACROCAT
      FROM MG10_MACROCAT WITH (NOLOCK)
     WHERE MG10_DITTA_CG18 = @ditta
       AND MG10_TIPOCF = @tipocf
       AND MG10_MACROCAT = @codice
)
GO

-- Description of a macro-area of customers (@tipocf 0) or suppliers (1).
CREATE FUNCTION dbo.FNMG07_MACROAREE (@codice varchar(3), @ditta decimal(5,0), @tipocf smallint)
RETURNS TABLE
AS
RETURN
(
    SELECT MG07_MACROAREA, MG07_DESCRMACROAR
      FROM MG07_MACROAREE WITH (NOLOCK)
     WHERE MG07_DITTA_CG18 = @ditta
       AND MG07_TIPOCF = @tipocf
       AND MG07_MACROAREA = @codice
)
GO

-- The company's activities of an application. @flag 1 adds the missing ones only,
-- any other value starts anew.
CREATE PROCEDURE SPGM_IMPOSTAZIONEINIZIALEATTIVITADITTA
    @ditta        decimal(5,0),
    @applicazione smallint,
    @flag         smallint
AS
BEGIN
    SET NOCOUNT ON

    IF @flag <> 1
        DELETE FROM GM02_ATTIVITADITTA
         WHERE GM02_DITTA_CG18 = @ditta
           AND GM02_IDAPPLICAZIONE_GM01 = @applicazione

    INSERT INTO GM02_ATTIVITADITTA (GM02_DITTA_CG18, GM02_IDAPPLICAZIONE_GM01, GM02_IDATTIVITA_GM01)
    SELECT @ditta, GM01_IDAPPLICAZIONE, GM01_IDATTIVITA
      FROM GM01_ATTIVITA WITH (NOLOCK)
     WHERE GM01_IDAPPLICAZIONE = @applicazione
       AND NOT EXISTS (SELECT 1
                         FROM GM02_ATTIVITADITTA WITH (NOLOCK)
                        WHERE GM02_DITTA_CG18 = @ditta
                          AND GM02_IDAPPLICAZIONE_GM01 = GM01_IDAPPLICAZIONE
                          AND GM02_IDATTIVITA_GM01 = GM01_IDATTIVITA)
END
GO

-- The scheduler's jobs.
CREATE TABLE FW01_JOB (
    FW01_IDJOB               int           IDENTITY(1,1) NOT NULL PRIMARY KEY,
    FW01_DITTA_CG18          decimal(5,0)  NULL,
    FW01_VOCEMENU            int           NULL,
    FW01_DESCRJOB            varchar(100)  NULL,
    FW01_DESCRATT            varchar(100)  NULL,
    FW01_PATHINST            varchar(255)  NULL,
    FW01_PARAMETRO           varchar(255)  NULL,
    FW01_DATACREAZ           datetime      NULL,
    FW01_DATAULTRICH         datetime      NULL,
    FW01_NUMRICHIESTE        int           NULL
)
GO

-- Asks for a job. Unless a new one is always wanted, the company's last job of the
-- same menu entry and parameter is taken again, with the texts and path of now.
CREATE PROCEDURE SPFW_NEWATTJOB
    @vocemenu     int,
    @DescrJob     varchar(100),
    @DescrAtt     varchar(100),
    @PathInst     varchar(255),
    @parametro    varchar(255),
    @Ditta        decimal(5,0),
    @AlwaysNewAtt int
AS
BEGIN
    SET NOCOUNT ON

    DECLARE @idjob int
    SET @idjob = (SELECT MAX(FW01_IDJOB)
                    FROM FW01_JOB WITH (NOLOCK)
                   WHERE FW01_DITTA_CG18 = @Ditta
                     AND FW01_VOCEMENU = @vocemenu
                     AND FW01_PARAMETRO = @parametro)

    IF @AlwaysNewAtt = 0 AND @idjob IS NOT NULL
        UPDATE FW01_JOB
           SET FW01_DESCRJOB     = @DescrJob,
               FW01_DESCRATT     = @DescrAtt,
               FW01_PATHINST     = @PathInst,
               FW01_DATAULTRICH  = GETDATE(),
               FW01_NUMRICHIESTE = FW01_NUMRICHIESTE + 1
         WHERE FW01_IDJOB = @idjob
    ELSE
        INSERT INTO FW01_JOB (FW01_DITTA_CG18, FW01_VOCEMENU, FW01_DESCRJOB, FW01_DESCRATT, FW01_PATHINST,
                              FW01_PARAMETRO, FW01_DATACREAZ, FW01_DATAULTRICH, FW01_NUMRICHIESTE)
        VALUES (@Ditta, @vocemenu, @DescrJob, @DescrAtt, @PathInst,
                @parametro, GETDATE(), GETDATE(), 1)
END
GO
